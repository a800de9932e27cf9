#pragma once

#include "model/profile.h"
#include "store/reminder_manager.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace ledra {

/// A reminder and what its computed values depend on.
struct ReminderSummary
{
    const Reminder& reminder;
    const Invoice* invoice; ///< null when it has been deleted
    const Profile& profile;
    int paymentDeadlineDays;
};

class JSONEncoderState;

/// The keys of the reminder's file, then "headline", "paymentDeadline" (yyyy-MM-dd) and, as long as the
/// invoice is there, "invoiceNumber", "amount", "interestAmount" and "currency".
void encode(const ReminderSummary& summary, JSONEncoderState& state);

} // namespace ledra
