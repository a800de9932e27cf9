#include "render/item_table.h"

#include "model/amount_text.h"
#include "model/document_labels.h"
#include "model/html_text.h"

#include <algorithm>

namespace ledra {

namespace {

QString cell(const char* name, const QString& html)
{
    return QStringLiteral("<td class=\"%1\">%2</td>").arg(QString::fromLatin1(name), html);
}

QString headCell(const char* name, const QString& label)
{
    return QStringLiteral("<th class=\"%1\">%2</th>").arg(QString::fromLatin1(name), htmlEscaped(label));
}

/// A heading may break between its words.
qsizetype longestWord(const QString& heading)
{
    qsizetype size = 0;
    for (const QStringView word : QStringView(heading).split(u' '))
        size = std::max(size, word.size());
    return size;
}

/// The first line names the item; the lines after it, if any, tell more about it.
QString descriptionHtml(const QString& text)
{
    QString html = htmlLines(text);
    const QString lineBreak = QStringLiteral("<br>");
    const qsizetype end = html.indexOf(lineBreak);
    if (end < 0)
        return html;
    const qsizetype detail = end + lineBreak.size();
    return html.left(detail) + QStringLiteral("<span class=\"detail\">%1</span>").arg(html.mid(detail));
}

} // namespace

ItemTable::ItemTable(const Invoice& invoice, Language language) : invoice_(invoice), language_(language)
{
    const std::vector<Invoice::Item>& items = invoice.items;
    const auto isOnePrice = [](const Invoice::Item& item) {
        return item.unit == Unit::lumpSum && item.quantity == 1;
    };
    // Gross prices need a total beside them, which is net.
    showsQuantity_ = items.empty() || invoice.grossPrices || !std::ranges::all_of(items, isOnePrice);
    if (!items.empty()) {
        const Invoice::Item& first = items.front();
        showsVat_ = std::ranges::any_of(
            items, [&](const Invoice::Item& item) { return item.vatPercentage != first.vatPercentage; });
        if (std::ranges::all_of(items, [&](const Invoice::Item& item) { return item.unit == first.unit; }))
            commonUnit_ = first.unit;
    }
}

int ItemTable::columnCount() const
{
    // Without quantities the price is the total as well, and one column says both.
    return 2 + (showsQuantity_ ? 2 : 0) + (showsVat_ ? 1 : 0);
}

QString ItemTable::price(const Invoice::Item& item) const
{
    return amountText(item.unitPrice, invoice_.currency, language_);
}

QString ItemTable::lineTotal(const Invoice::Item& item) const
{
    return amountText(invoice_.lineNet(item), invoice_.currency, language_);
}

QString ItemTable::quantity(const Invoice::Item& item) const
{
    return quantityText(item.quantity, language_);
}

QString ItemTable::unit(const Invoice::Item& item) const
{
    return unitLabel(item.unit, item.quantity, language_);
}

QString ItemTable::vat(const Invoice::Item& item) const
{
    return percentText(item.vatPercentage, language_);
}

qsizetype ItemTable::longest(CellText text) const
{
    qsizetype size = 0;
    for (const Invoice::Item& item : invoice_.items)
        size = std::max(size, (this->*text)(item).size());
    return size;
}

QString ItemTable::column(const char* name, const QString& heading, CellText text) const
{
    return QStringLiteral("<col class=\"%1\" style=\"--figures: %2; --letters: %3\">")
        .arg(QString::fromLatin1(name), QString::number(longest(text)),
             QString::number(longestWord(heading)));
}

void ItemTable::addHead(TemplateValues& values) const
{
    const auto label = [this](const char* key) { return documentLabel(QString::fromLatin1(key), language_); };
    const bool gross = invoice_.grossPrices;
    const QString price = label(gross ? "Gross Price" : "Price");
    QString columns = QStringLiteral("<col class=\"description\">");
    values.insert(QStringLiteral("description-label"), htmlEscaped(label("Description")));
    const auto addColumn = [&](const char* key, const char* name, const QString& heading, CellText text) {
        columns += column(name, heading, text);
        values.insert(QString::fromLatin1(key), headCell(name, heading));
    };
    for (const char* key : {"quantity-column", "vat-column", "total-column"})
        values.insert(QString::fromLatin1(key), QString());
    if (showsQuantity_ && commonUnit_)
        addColumn("quantity-column", "quantity", unitLabel(*commonUnit_, 2, language_), &ItemTable::quantity);
    else if (showsQuantity_)
        addColumn("quantity-column", "quantity with-unit", label("Quantity"), &ItemTable::quantity);
    columns += column("price", price, &ItemTable::price);
    values.insert(QStringLiteral("price-label"), htmlEscaped(price));
    if (showsVat_)
        addColumn("vat-column", "vat", label("VAT"), &ItemTable::vat);
    // A line's total is its net; where prices are gross the heading says so.
    if (showsQuantity_)
        addColumn("total-column", "total", label(gross ? "Net Total" : "Total"), &ItemTable::lineTotal);
    values.insert(QStringLiteral("columns"), columns);
    values.insert(QStringLiteral("unit-letters"),
                  QString::number(commonUnit_ ? 0 : longest(&ItemTable::unit)));
    values.insert(QStringLiteral("column-count"), QString::number(columnCount()));
}

QString ItemTable::quantityCell(const Invoice::Item& item) const
{
    const QString number = htmlEscaped(quantity(item));
    if (commonUnit_)
        return cell("quantity", number);
    return cell("quantity with-unit",
                QStringLiteral("%1<span class=\"unit\">%2</span>").arg(number, htmlEscaped(unit(item))));
}

QString ItemTable::itemRow(const Invoice::Item& item) const
{
    QString cells = cell("description", descriptionHtml(item.item));
    if (showsQuantity_)
        cells += quantityCell(item);
    cells += cell("price", htmlEscaped(price(item)));
    if (showsVat_)
        cells += cell("vat", htmlEscaped(vat(item)));
    if (showsQuantity_)
        cells += cell("total", htmlEscaped(lineTotal(item)));
    return QStringLiteral("<tr class=\"item\">%1</tr>\n").arg(cells);
}

QString ItemTable::emptyRow() const
{
    return QStringLiteral("<tr class=\"empty-row\">%1</tr>\n")
        .arg(QStringLiteral("<td></td>").repeated(columnCount()));
}

QString ItemTable::noteRow(const QString& line) const
{
    const QString html =
        line.trimmed().isEmpty() ? QStringLiteral("&nbsp;") : inlineMarkdown(htmlEscaped(line));
    return QStringLiteral("<tr class=\"note-row\"><td colspan=\"%1\"><div class=\"note\">"
                          "<div class=\"note-line\">%2</div></div></td></tr>\n")
        .arg(QString::number(columnCount()), html);
}

namespace {

/// The lines of the totals below the sum, each a label and an amount.
class TotalLines
{
public:
    TotalLines(const Invoice& invoice, Language language) : invoice_(invoice), language_(language) {}

    QString amount(double value) const
    {
        return htmlEscaped(amountText(value, invoice_.currency, language_));
    }
    QString label(const char* key) const { return documentLabel(QString::fromLatin1(key), language_); }

    QString rateLabel(const char* key, double percentage) const
    {
        return documentLabel(QString::fromLatin1(key), language_,
                             {{QStringLiteral("percentage"), percentText(percentage, language_)}});
    }

    static QString line(const QString& label, const QString& amountHtml, const char* extraClass = "")
    {
        return QStringLiteral("<div class=\"line%1\"><span class=\"label\">%2</span>"
                              "<span class=\"amount\">%3</span></div>\n")
            .arg(QString::fromLatin1(extraClass), htmlEscaped(label), amountHtml);
    }

    QString discount() const
    {
        const double discount = invoice_.discount();
        if (discount == 0)
            return {};
        const bool isPercentage = invoice_.discountPercentage.value_or(0) > 0;
        const QString name =
            isPercentage ? rateLabel("Discount Percentage", *invoice_.discountPercentage) : label("Discount");
        const QString text = discount > 0 ? QStringLiteral("&minus;") + amount(discount) : amount(-discount);
        return line(name, text);
    }

    QString vatAndTotal(const std::vector<VATAmount>& vatAmounts) const
    {
        QString html;
        double sum = 0;
        for (const VATAmount& vat : vatAmounts) {
            html += line(rateLabel("VAT Rate", vat.rate), amount(vat.amount));
            sum += vat.amount;
        }
        if (vatAmounts.size() > 1)
            html += line(label("Total VAT"), amount(sum));
        const char* key = vatAmounts.empty() ? "Total" : "Total with VAT";
        return html + line(label(key), amount(invoice_.total()), " grand-total");
    }

private:
    const Invoice& invoice_;
    Language language_;
};

} // namespace

void addTotals(TemplateValues& values, const Invoice& invoice, Language language)
{
    const TotalLines lines(invoice, language);
    const std::vector<VATAmount> vatAmounts = invoice.vatAmounts();
    const QString discount = lines.discount();
    const bool isOnlyLine = vatAmounts.empty() && discount.isEmpty();
    values.insert(QStringLiteral("sum-class"), isOnlyLine ? QStringLiteral("grand-total") : QString());
    values.insert(QStringLiteral("sum-label"), htmlEscaped(lines.label(isOnlyLine ? "Total" : "Subtotal")));
    values.insert(QStringLiteral("sum"), lines.amount(invoice.subtotal()));
    values.insert(QStringLiteral("discount-rows"), discount);
    values.insert(QStringLiteral("vat"), isOnlyLine ? QString() : lines.vatAndTotal(vatAmounts));
}

} // namespace ledra
