#include "einvoice/viewer_page.h"

#include "model/amount_text.h"
#include "model/document_labels.h"
#include "model/html_text.h"

#include <array>

namespace ledra {

namespace {

/// The colours of an appearance by their placeholders.
struct ViewerColor
{
    const char* placeholder;
    const char* light;
    const char* dark;
};

// The light greys are for paper on a desk; the dark ones keep text quieter than white.
constexpr std::array viewerColors = {
    ViewerColor{"background-color", "#d1d1d6", "#161616"},
    ViewerColor{"sheet-color", "#ffffff", "#1d1d1f"},
    ViewerColor{"mix-color", "#aeaeb2", "#3a3a3c"},
    ViewerColor{"ink-color", "#1d1d1f", "#d1d1d6"},
    ViewerColor{"muted-color", "#636366", "#aeaeb2"},
    ViewerColor{"primary-color", "#1f5c99", "#6fb1f0"},
    ViewerColor{"primary-dark-color", "#17456f", "#9ccbf7"},
};

/// A placeholder whose value is a label.
struct LabelPlaceholder
{
    const char* placeholder;
    const char* label;
};

constexpr std::array labels = {
    LabelPlaceholder{"date-label", "Date"},
    LabelPlaceholder{"items-label", "Description"},
    LabelPlaceholder{"quantity-column", "Quantity"},
    LabelPlaceholder{"price-label", "Price"},
    LabelPlaceholder{"total-column", "Total"},
    LabelPlaceholder{"sum-label", "Subtotal"},
    LabelPlaceholder{"banking-label", "Bank Details"},
};

QString joinedLines(const QStringList& lines)
{
    QStringList escaped;
    for (const QString& line : lines) {
        if (!line.isEmpty())
            escaped += htmlLines(line);
    }
    return escaped.join(QStringLiteral("<br>"));
}

} // namespace

QString ViewerPage::label(const char* key) const
{
    return documentLabel(QString::fromLatin1(key), setting_.language);
}

/// Empty where the document states no day, whatever its record holds.
QString ViewerPage::day(Timestamp moment, bool isStated) const
{
    return isStated ? attributeEscaped(dateText(moment.localDate(), setting_.language)) : QString();
}

QString ViewerPage::amount(double value) const
{
    return attributeEscaped(amountText(value, invoice_.currency, setting_.language));
}

TemplateValues ViewerPage::values()
{
    addFrame();
    addHead();
    addTotals();
    addSender();
    set("payment-period", paymentPeriod());
    set("attachments", attachments());
    return values_;
}

/// Sets a value and its label, which is empty where the value is.
void ViewerPage::setLabelled(const char* placeholder, const QString& html, const char* labelPlaceholder,
                             const char* label)
{
    set(placeholder, html);
    set(labelPlaceholder, html.isEmpty() ? QString() : this->label(label));
}

void ViewerPage::addFrame()
{
    const bool isDark = setting_.appearance == ViewerAppearance::dark;
    for (const ViewerColor& color : viewerColors)
        set(color.placeholder, QString::fromLatin1(isDark ? color.dark : color.light));
    for (const LabelPlaceholder& row : labels)
        set(row.placeholder, label(row.label));
    const std::string_view code = rawValue(setting_.language);
    set("language", QString::fromLatin1(code.data(), static_cast<qsizetype>(code.size())));
    set("color-scheme", isDark ? QStringLiteral("dark") : QStringLiteral("light"));
    set("file-name", attributeEscaped(opened_.viewer.fileName));
}

void ViewerPage::addHead()
{
    const QString title = viewerTitle(opened_.viewer, setting_.language);
    const QString recipient = addressLines(recipientAddress(invoice_), invoice_.senderAddressCountry);
    set("page-headline", title);
    set("address-row", recipient);
    set("recipient-address", recipient);
    set("date", day(invoice_.date, opened_.hasDate));
    setLabelled("service-date", day(invoice_.serviceDateStart, opened_.hasServiceDate), "service-date-label",
                "Service Date");
    set("number-type", title + u' ' + attributeEscaped(opened_.viewer.originalNumber));
    setLabelled("reference", htmlLines(invoice_.reference.value_or(QString())), "reference-label",
                "Reference");
    set("note", htmlLines(invoice_.note));
    QString items;
    for (const Invoice::Item& item : invoice_.items)
        items += itemRow(item);
    set("items", items);
}

void ViewerPage::addTotals()
{
    const double discount = invoice_.discount();
    set("sum", amount(invoice_.subtotal()));
    set("discount", discount == 0
                        ? QString()
                        : totalRow(label("Discount"), QStringLiteral("&minus;") + amount(discount)));
    set("vat", vatRows() + totalRow(label("Total"), amount(invoice_.total())));
    set("stated-totals", statedTotals());
}

void ViewerPage::addSender()
{
    set("address-block", addressLines(senderAddress(invoice_), invoice_.addressCountry));
    set("contact", joinedLines({invoice_.senderEmail, invoice_.senderPhone}));
    setLabelled("tax-number", attributeEscaped(invoice_.senderTaxNumber), "tax-label", "Tax Number");
    setLabelled("vat-number", attributeEscaped(invoice_.senderVatNumber), "vat-label", "VAT Number");
    set("additional-numbers", htmlLines(invoice_.senderAdditionalNumbers));
    set("iban", attributeEscaped(invoice_.senderIban));
    set("bic", attributeEscaped(invoice_.senderBic));
    if (invoice_.senderIban.isEmpty() && invoice_.senderBic.isEmpty())
        set("banking-label", QString());
}

QString ViewerPage::totalRow(const QString& heading, const QString& value) const
{
    return QStringLiteral("<tr><th>") + heading + QStringLiteral("</th><td>") + value +
           QStringLiteral("</td></tr>");
}

QString ViewerPage::itemRow(const Invoice::Item& item) const
{
    const QString quantity = quantityText(item.quantity, setting_.language) + QChar::Nbsp +
                             unitLabel(item.unit, item.quantity, setting_.language);
    QString row = QStringLiteral("<tr>");
    for (const QString& cell : {htmlLines(item.item), attributeEscaped(quantity), amount(item.unitPrice),
                                amount(invoice_.lineNet(item))})
        row += QStringLiteral("<td>") + cell + QStringLiteral("</td>");
    return row + QStringLiteral("</tr>");
}

QString ViewerPage::vatRows() const
{
    QString rows;
    for (const VATAmount& vat : invoice_.vatAmounts()) {
        const QString rate = documentLocale(setting_.language).toString(vat.rate, 'f', 1);
        rows += totalRow(rate + QStringLiteral("&hairsp;%"), amount(vat.amount));
    }
    return rows;
}

QString ViewerPage::addressLines(const PostalAddress& address, const Country& other) const
{
    QStringList lines = {address.name, address.businessName, address.lineOne, address.lineTwo};
    lines += address.placeLines();
    const bool isAbroad = !address.country.code.isEmpty() && address.country != other;
    if (isAbroad && !lines.join(QString()).isEmpty())
        lines += address.country.displayName(setting_.language);
    return joinedLines(lines);
}

QString ViewerPage::statedTotals() const
{
    if (opened_.differences.empty())
        return {};
    QString html = QStringLiteral("<p>") + label("Another Total Notice") + QStringLiteral("</p>");
    for (const StatedDifference& difference : opened_.differences)
        html += QStringLiteral("<p>") +
                attributeEscaped(statedText(difference, invoice_.currency, setting_.language)) +
                QStringLiteral("</p>");
    return html;
}

QString ViewerPage::paymentPeriod() const
{
    // Days are counted from the document's date, which therefore must be there as well.
    if (!opened_.hasDate || !opened_.daysToPay || *opened_.daysToPay < 0)
        return {};
    if (*opened_.daysToPay == 0)
        return label("Pay Invoice At Once");
    if (*opened_.daysToPay == 1)
        return label("Pay Invoice Within One Day");
    return documentLabel(QStringLiteral("Pay Invoice Within Days"), setting_.language,
                         {{QStringLiteral("days"), QString::number(*opened_.daysToPay)}});
}

QString ViewerPage::attachments() const
{
    if (opened_.attachments.isEmpty())
        return {};
    QString html = QStringLiteral("<h2>") + label("Attachments") + QStringLiteral("</h2><ul>");
    for (const QString& name : opened_.attachments)
        html += QStringLiteral("<li>") + attributeEscaped(name) + QStringLiteral("</li>");
    return html + QStringLiteral("</ul>");
}

} // namespace ledra
