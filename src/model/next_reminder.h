#pragma once

#include "model/profile.h"
#include "model/reminder.h"

#include <span>

namespace ledra {

/// The reminder that follows the earlier ones of an invoice: the stage after the highest, or the first, which
/// is the friendly stage 0 where the profile wants it. Its text is the profile's template or else the usual
/// letter of the stage; interest and fee are the profile's, none at stage 0.
Reminder nextReminder(const Invoice& invoice, const Profile& profile, std::span<const Reminder> earlier,
                      QDate today);

/// The text that a reminder begins with: the profile's template, or else the usual letter.
QString firstReminderText(const Reminder& reminder, const Invoice& invoice, const Profile& profile);

/// The usual letter of a reminder's stage in the invoice's language, with variables. Interest and fee are
/// named only where the reminder has them.
QString usualReminderText(const Reminder& reminder, const Invoice& invoice, Language language);

} // namespace ledra
