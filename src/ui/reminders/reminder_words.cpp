#include "ui/reminders/reminder_words.h"

#include "app/reader_language.h"
#include "model/amount_text.h"

#include <QCoreApplication>

namespace ledra {

QString headlineText(std::int64_t stage)
{
    return QCoreApplication::translate("ReminderHeadline", reminderHeadline(stage).toLatin1().constData());
}

QString spokenDay(QDate day)
{
    const bool isGerman = readerLanguage() == Language::german;
    return documentLocale(readerLanguage()).toString(day, isGerman ? u"d. MMMM yyyy" : u"d MMMM yyyy");
}

QString nearDayText(QDate day, QDate today)
{
    const QString text = spokenDay(day);
    const QString year = QString::number(day.year());
    return day.year() == today.year() ? text.left(text.size() - year.size()).trimmed() : text;
}

QString daysText(qint64 days)
{
    const auto count = static_cast<int>(days);
    return QCoreApplication::translate("Reminders", "%n days", nullptr, count);
}

double amountToPay(const Reminder& reminder, const Invoice& invoice)
{
    return roundedToCents(invoice.total() + roundedToCents(interestAmount(reminder, invoice)) + reminder.fee);
}

} // namespace ledra
