#pragma once

#include "model/invoice.h"
#include "model/record.h"

#include <QDate>
#include <QUuid>

#include <cstdint>

namespace ledra {

/// A letter that reminds of an invoice that has not been paid (a dunning letter). Lives as a file of its own
/// beside the invoices.
struct Reminder
{
    QUuid id;
    std::int64_t version = 1;
    QUuid invoiceId;
    QDate date;
    std::int64_t number = 0;       ///< the stage: 0 friendly, 1, 2, …
    QString text;                  ///< with variables, see reminder_variable.h
    double interestPercentage = 0; ///< percent per year
    double fee = 0;                ///< in the invoice's currency

    friend bool operator==(const Reminder&, const Reminder&) = default;
};

using ReminderRecord = Record<Reminder>;

/// The interest from the invoice's due day to the reminder's day, at 365 days a year; 0 before and on the due
/// day.
double interestAmount(const Reminder& reminder, const Invoice& invoice);

/// The headline of a stage's letter: "Friendly Reminder", "Payment Reminder", … "Final Payment Reminder".
QString reminderHeadline(std::int64_t stage);

template <>
inline constexpr std::tuple recordFields<Reminder> = {
    &Reminder::id,     &Reminder::version, &Reminder::invoiceId,          &Reminder::date,
    &Reminder::number, &Reminder::text,    &Reminder::interestPercentage, &Reminder::fee,
};

} // namespace ledra
