#include "model/reminder.h"

#include <algorithm>
#include <array>

namespace ledra {

double interestAmount(const Reminder& reminder, const Invoice& invoice)
{
    constexpr double daysOfYear = 365; // in leap years as well
    const qint64 days = invoice.dueDay().daysTo(reminder.date);
    if (!reminder.date.isValid() || days <= 0)
        return 0;
    return reminder.interestPercentage * invoice.total() / 100 / daysOfYear * static_cast<double>(days);
}

QString reminderHeadline(std::int64_t stage)
{
    constexpr std::array headlines = {"Friendly Reminder", "Payment Reminder", "Second Payment Reminder",
                                      "Final Payment Reminder"};
    constexpr auto last = static_cast<std::int64_t>(headlines.size()) - 1;
    return QString::fromLatin1(
        headlines.at(static_cast<std::size_t>(std::clamp<std::int64_t>(stage, 0, last))));
}

} // namespace ledra
