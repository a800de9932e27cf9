#include "model/reminder_variable.h"

#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/template_text.h"

namespace ledra {

namespace {

/// A day within a sentence: "5. März 2026" in German, "5 March 2026" in English. Day and month stay on one
/// line.
QString sentenceDate(QDate day, Language language)
{
    const bool isGerman = language == Language::german;
    return documentLocale(language).toString(day, isGerman ? QStringLiteral("d.\u00a0MMMM yyyy")
                                                           : QStringLiteral("d\u00a0MMMM yyyy"));
}

} // namespace

QString token(ReminderVariable variable)
{
    return QStringLiteral("{{%1}}").arg(QLatin1StringView(rawValue(variable)));
}

QString variableValue(ReminderVariable variable, const ReminderFacts& facts)
{
    const Invoice& invoice = facts.invoice;
    const Language language = facts.language();
    const auto amount = [&](double value) { return amountText(value, invoice.currency, language); };
    switch (variable) {
    case ReminderVariable::name:
        return invoice.name;
    case ReminderVariable::invoiceNumber:
        return displayedNumber(invoice, facts.profile);
    case ReminderVariable::invoiceDate:
        return sentenceDate(invoice.date.localDate(), language);
    case ReminderVariable::amount:
        return amount(invoice.total());
    case ReminderVariable::paymentDeadline:
        return sentenceDate(facts.paymentDeadline(), language);
    case ReminderVariable::dueDate:
        return sentenceDate(invoice.dueDay(), language);
    case ReminderVariable::interestAmount:
        return amount(interestAmount(facts.reminder, invoice));
    case ReminderVariable::interestRate:
        return QString::number(facts.reminder.interestPercentage, 'f', 2);
    case ReminderVariable::feeAmount:
        return amount(facts.reminder.fee);
    }
    return {};
}

QString expandedReminderText(const ReminderFacts& facts)
{
    QString text;
    qsizetype copied = 0; // up to where the text has been looked at
    const QString& original = facts.reminder.text;
    for (qsizetype open = original.indexOf(u"{{"); open >= 0; open = original.indexOf(u"{{", copied)) {
        const QStringView rest = QStringView(original).sliced(open);
        const auto matches = [&](const EnumText<ReminderVariable>& row) {
            return rest.startsWith(token(row.value));
        };
        const auto found = std::ranges::find_if(enumTexts<ReminderVariable>, matches);
        const bool isToken = found != enumTexts<ReminderVariable>.end();
        text += QStringView(original).sliced(copied, open - copied);
        text += isToken ? variableValue(found->value, facts) : QStringLiteral("{");
        copied = open + (isToken ? token(found->value).size() : 1);
    }
    text += QStringView(original).sliced(copied);
    return text;
}

} // namespace ledra
