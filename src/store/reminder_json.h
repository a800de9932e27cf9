#pragma once

#include "model/reminder.h"
#include "store/invoice_json.h"

namespace ledra {

// clang-format off: one line a key
template <>
inline constexpr std::tuple jsonSchema<Reminder> = {
    JSONKey{"id", &Reminder::id},
    JSONKey{"version", &Reminder::version},
    JSONRequiredKey{JSONKey{"invoiceId", &Reminder::invoiceId}},
    JSONDayKey{JSONKey{"date", &Reminder::date}},
    JSONKey{"number", &Reminder::number},
    JSONKey{"text", &Reminder::text},
    JSONPositiveKey{JSONKey{"interestPercentage", &Reminder::interestPercentage}},
    JSONPositiveKey{JSONKey{"fee", &Reminder::fee}},
};
// clang-format on

/// Reads a reminder file. Only the invoice's id is required; a day that is missing or none is today.
[[nodiscard]] Decoded<Reminder> decodeReminder(const QByteArray& document, const NewRecordValues& values);

} // namespace ledra
