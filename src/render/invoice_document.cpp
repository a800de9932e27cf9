#include "render/invoice_document.h"

#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/document_labels.h"
#include "model/html_text.h"
#include "render/record_key.h"
#include "render/templates.h"
#include "store/invoice_json.h"
#include "store/styling_json.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace ledra {

namespace {

constexpr int fullTable = 11;          // rows up to which a short table is padded
constexpr double emptyRowHeight = 0.8; // rem

/// The words for a type of document.
struct TypeLabels
{
    const char* headline;
    const char* number;
};

TypeLabels labelsOf(InvoiceType type)
{
    constexpr std::array<TypeLabels, 3> labels = {{
        {"Invoice", "Invoice Number"},
        {"Cancellation Invoice", "Cancellation Invoice Number"},
        {"Quote", "Quote Number"},
    }};
    return labels.at(static_cast<std::size_t>(type));
}

} // namespace

InvoiceDocument::InvoiceDocument(Invoice invoice, DocumentSetting setting, const WebFontManager& fonts)
    : invoice_(std::move(invoice)),
      setting_(std::move(setting)),
      language_(invoice_.language.value_or(setting_.profile.language)),
      noteLines_(invoice_.note.isEmpty() ? QStringList() : textLines(invoice_.note)),
      number_(displayedNumber(invoice_, setting_.profile)),
      title_(documentLabel(QString::fromLatin1(labelsOf(invoice_.type).headline), language_) + u' ' +
             number_),
      table_(invoice_, language_),
      contentValues_(contentValues()),
      shell_(invoice_, setting_.styling, setting_.colorScheme, fonts, frame())
{}

LetterFrame InvoiceDocument::frame() const
{
    const bool isCancellation = invoice_.type == InvoiceType::cancellation;
    LetterFrame frame;
    frame.language = language_;
    frame.title = title_;
    frame.headline = documentLabel(QString::fromLatin1(labelsOf(invoice_.type).headline), language_);
    frame.runningTitle = title_;
    frame.paymentPeriod = isCancellation ? QString() : paymentPeriod();
    frame.exemption = exemptionText(invoice_.vatExemptionReason, language_);
    return frame;
}

QString InvoiceDocument::paymentPeriod() const
{
    const QString due = dateText(invoice_.dueDay(), language_);
    const bool isQuote = invoice_.type == InvoiceType::quote;
    const QString heading =
        documentLabel(isQuote ? QStringLiteral("Valid Until") : QStringLiteral("Payable By"), language_);
    QString html =
        QStringLiteral("<h2>%1</h2><p class=\"due\">%2</p>").arg(htmlEscaped(heading), htmlEscaped(due));
    if (isQuote)
        return html;
    const QString key = invoice_.daysToPay > 1    ? QStringLiteral("Payment Period Notice")
                        : invoice_.daysToPay == 1 ? QStringLiteral("Payment Tomorrow Notice")
                                                  : QStringLiteral("Payment Immediately Notice");
    const QString notice =
        documentLabel(key, language_, {{QStringLiteral("days"), QString::number(invoice_.daysToPay)}});
    return html + QStringLiteral("<p>%1</p>").arg(htmlEscaped(notice));
}

QString InvoiceDocument::metaRow(const char* key, const QString& value) const
{
    if (value.isEmpty())
        return {};
    const QString label = documentLabel(QString::fromLatin1(key), language_);
    return QStringLiteral("    <tr>\n        <th>%1</th>\n        <td>%2</td>\n  </tr>")
        .arg(htmlEscaped(label), htmlEscaped(value));
}

QString InvoiceDocument::numberOf(const std::optional<QUuid>& id) const
{
    const std::optional<Invoice> other = id ? setting_.invoices(*id) : std::nullopt;
    return other ? displayedNumber(*other, setting_.profile) : QString();
}

/// One day, or a period whose start leaves the year out when the end shows the same one.
QString InvoiceDocument::serviceDateRow() const
{
    const QDate start = invoice_.serviceDateStart.localDate();
    const QDate end = invoice_.serviceDateEnd ? invoice_.serviceDateEnd->localDate() : start;
    if (end <= start)
        return metaRow("Service Date", dateText(start, language_));
    const bool sameYear = start.year() == end.year();
    const QString from = sameYear ? shortDateText(start, language_) : dateText(start, language_);
    return metaRow("Service Period", from + QStringLiteral(" – ") + dateText(end, language_));
}

TemplateValues InvoiceDocument::contentValues() const
{
    TemplateValues values;
    values.insert(QStringLiteral("number-row"), metaRow(labelsOf(invoice_.type).number, number_));
    values.insert(QStringLiteral("date-label"),
                  htmlEscaped(documentLabel(QStringLiteral("Date"), language_)));
    values.insert(QStringLiteral("date"), htmlEscaped(dateText(invoice_.date.localDate(), language_)));
    values.insert(QStringLiteral("service-date"), serviceDateRow());
    if (invoice_.type == InvoiceType::cancellation)
        values.insert(QStringLiteral("cancelled-invoice"),
                      metaRow("Original Invoice", numberOf(invoice_.cancelledInvoiceId)));
    values.insert(QStringLiteral("quote-number"), metaRow("Quote Number", numberOf(invoice_.quoteId)));
    values.insert(QStringLiteral("reference"), metaRow("Reference", invoice_.reference.value_or(QString())));
    table_.addHead(values);
    addTotals(values, invoice_, language_);
    return values;
}

QString InvoiceDocument::content(const std::vector<int>& blocks, int emptyRows) const
{
    const std::expected<QString, QString> text = templateText(QStringLiteral("InvoiceContent.html"));
    if (!text)
        return DocumentShell::errorPage(text.error());

    QString items;
    QString note;
    for (const int block : blocks) {
        if (block < itemCount())
            items += table_.itemRow(invoice_.items[static_cast<std::size_t>(block)]);
        else if (block > itemCount())
            note += table_.noteRow(noteLines_.at(block - itemCount() - 1));
    }
    for (int row = 0; row < emptyRows; ++row)
        items += table_.emptyRow();

    TemplateValues values = contentValues_;
    values.insert(QStringLiteral("items"), items);
    values.insert(QStringLiteral("note"), note);
    return filledTemplate(*text, values);
}

QString InvoiceDocument::measuringHtml() const
{
    std::vector<int> all(static_cast<std::size_t>(expectedBlockCount()));
    std::iota(all.begin(), all.end(), 0);
    LetterPage page;
    page.isMeasuring = true;
    page.content = content(all, 0);
    return shell_.page(page);
}

QStringList InvoiceDocument::blockSelectors() const
{
    return {QStringLiteral(".main-table tbody tr")};
}

int InvoiceDocument::expectedBlockCount() const
{
    return itemCount() + static_cast<int>(noteLines_.size()) + 1;
}

std::size_t InvoiceDocument::cacheKey() const
{
    const Styling& styling = setting_.styling;
    return qHashMulti(0, recordKey(invoice_), recordKey(styling), styling.css.has_value(),
                      styling.css.value_or(QString()), static_cast<int>(setting_.colorScheme));
}

std::optional<QString> InvoiceDocument::headerSelector() const
{
    return QStringLiteral(".main-table thead");
}

double InvoiceDocument::continuationOffset(double rem) const
{
    return shell_.continuationOffset(setting_.styling, rem);
}

/// Only a document of one page is padded: on a longer one the table is full anyway, and the space below the
/// last rows shows where the document ends.
int InvoiceDocument::emptyRowCount(PagePosition position, int itemRows, double remainingSpace,
                                   double rem) const
{
    if (!setting_.styling.emptyItemRows || position != PagePosition::single || rem <= 0)
        return 0;
    const double fitting = std::floor(remainingSpace / (emptyRowHeight * rem));
    return static_cast<int>(std::min<double>(std::max(0, fullTable - itemRows), std::max(0.0, fitting)));
}

QString InvoiceDocument::pageHtml(PagePosition position, const std::vector<int>& blocks,
                                  double remainingSpace, double rem) const
{
    const auto itemRows =
        static_cast<int>(std::ranges::count_if(blocks, [this](int block) { return block < itemCount(); }));
    const bool hasTotals = std::ranges::find(blocks, itemCount()) != blocks.end();
    LetterPage page;
    page.position = position;
    page.isUnmeasured = remainingSpace >= unmeasuredSpace;
    const int emptyRows = emptyRowCount(position, itemRows, remainingSpace, rem);
    if (itemRows + emptyRows == 0)
        page.stateClasses += QStringLiteral("no-items");
    if (!hasTotals)
        page.stateClasses += QStringLiteral("no-totals");
    page.content = content(blocks, emptyRows);
    return shell_.page(page);
}

} // namespace ledra
