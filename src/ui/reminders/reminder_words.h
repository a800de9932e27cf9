#pragma once

#include "model/reminder.h"

#include <QString>

namespace ledra {

// How the window speaks of reminders.

/// "Second Payment Reminder".
QString headlineText(std::int64_t stage);

/// "3 September 2026", or "3. September 2026" in German.
QString spokenDay(QDate day);

/// The same without the year if it is that of today.
QString nearDayText(QDate day, QDate today);

/// "1 day", "79 days".
QString daysText(qint64 days);

/// What the letter demands: the invoice's total, the interest and the fee.
double amountToPay(const Reminder& reminder, const Invoice& invoice);

} // namespace ledra
