#include "render/reminder_document.h"

#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/document_labels.h"
#include "model/html_text.h"
#include "render/record_key.h"
#include "render/templates.h"
#include "store/reminder_json.h"
#include "store/styling_json.h"

#include <numeric>

namespace ledra {

ReminderDocument::ReminderDocument(Reminder reminder, Invoice invoice, DocumentSetting setting,
                                   const WebFontManager& fonts)
    : reminder_(std::move(reminder)),
      invoice_(std::move(invoice)),
      setting_(std::move(setting)),
      language_(facts().language()),
      number_(displayedNumber(invoice_, setting_.profile)),
      headline_(documentLabel(reminderHeadline(reminder_.number), language_)),
      title_(headline_ + u' ' + number_),
      lines_(textLines(expandedReminderText(facts()))),
      contentValues_(contentValues()),
      shell_(invoice_, setting_.styling, setting_.colorScheme, fonts, frame())
{}

ReminderFacts ReminderDocument::facts() const
{
    return {reminder_, invoice_, setting_.profile, setting_.paymentDeadlineDays};
}

LetterFrame ReminderDocument::frame() const
{
    LetterFrame frame;
    frame.language = language_;
    frame.title = title_;
    frame.headline = headline_;
    frame.runningTitle = title_;
    frame.paymentPeriod = paymentPeriod();
    frame.stateClasses = {QStringLiteral("reminder")};
    return frame;
}

QString ReminderDocument::paymentPeriod() const
{
    const QString heading = documentLabel(QStringLiteral("Payable By"), language_);
    return QStringLiteral("<h2>%1</h2><p class=\"due\">%2</p>")
        .arg(htmlEscaped(heading), htmlEscaped(dateText(facts().paymentDeadline(), language_)));
}

TemplateValues ReminderDocument::contentValues() const
{
    const auto label = [&](const QString& key) { return htmlEscaped(documentLabel(key, language_)); };
    return {
        {QStringLiteral("date-label"), label(QStringLiteral("Date"))},
        {QStringLiteral("date"), htmlEscaped(dateText(reminder_.date, language_))},
        {QStringLiteral("invoice-number-label"), label(QStringLiteral("Invoice Number"))},
        {QStringLiteral("invoice-number"), htmlEscaped(number_)},
        {QStringLiteral("amount-label"), label(QStringLiteral("Amount Due"))},
        {QStringLiteral("amount"), htmlEscaped(amountText(invoice_.total(), invoice_.currency, language_))},
    };
}

QString ReminderDocument::content(const std::vector<int>& blocks) const
{
    const std::expected<QString, QString> text = templateText(QStringLiteral("ReminderContent.html"));
    if (!text)
        return DocumentShell::errorPage(text.error());
    QString lines;
    for (const int block : blocks) {
        const QString& line = lines_.at(block);
        const QString html =
            line.trimmed().isEmpty() ? QStringLiteral("&nbsp;") : inlineMarkdown(htmlEscaped(line));
        lines += QStringLiteral("<div class=\"reminder-line\">%1</div>\n").arg(html);
    }
    TemplateValues values = contentValues_;
    values.insert(QStringLiteral("text"),
                  QStringLiteral("<div class=\"reminder-body\">\n") + lines + QStringLiteral("</div>"));
    return filledTemplate(*text, values);
}

QString ReminderDocument::measuringHtml() const
{
    std::vector<int> all(static_cast<std::size_t>(expectedBlockCount()));
    std::iota(all.begin(), all.end(), 0);
    LetterPage page;
    page.isMeasuring = true;
    page.content = content(all);
    return shell_.page(page);
}

QStringList ReminderDocument::blockSelectors() const
{
    return {QStringLiteral(".reminder-line")};
}

std::size_t ReminderDocument::cacheKey() const
{
    const Styling& styling = setting_.styling;
    return qHashMulti(0, recordKey(reminder_), recordKey(invoice_), recordKey(styling),
                      styling.css.has_value(), styling.css.value_or(QString()),
                      static_cast<int>(setting_.colorScheme));
}

double ReminderDocument::continuationOffset(double rem) const
{
    return shell_.continuationOffset(setting_.styling, rem);
}

QString ReminderDocument::pageHtml(PagePosition position, const std::vector<int>& blocks,
                                   double remainingSpace, double) const
{
    LetterPage page;
    page.position = position;
    page.isUnmeasured = remainingSpace >= unmeasuredSpace;
    page.content = content(blocks);
    return shell_.page(page);
}

} // namespace ledra
