#pragma once

#include "store/invoice_manager.h"
#include "store/profile_manager.h"
#include "store/reminder_manager.h"

#include <QString>

#include <expected>

namespace ledra {

/// The record that a text names: a whole id, else an exact displayed number, else the beginning of an id (six
/// characters or more). The error says that there is none, or lists those that it may mean.
[[nodiscard]] std::expected<InvoicePtr, QString>
lookUpInvoice(const InvoiceManager& invoices, const ProfileManager& profiles, const QString& text);

/// The reminder that a text names: an id or its beginning, "2026-042:1" for a stage of an invoice's
/// reminders, or an invoice as above for its latest one.
[[nodiscard]] std::expected<ReminderPtr, QString> lookUpReminder(ReminderManager& reminders,
                                                                 const InvoiceManager& invoices,
                                                                 const ProfileManager& profiles,
                                                                 const QString& text);

/// The profile that a text names: its folder, else its display name, else an id or its beginning.
[[nodiscard]] std::expected<ProfilePtr, QString> lookUpProfile(const ProfileManager& profiles,
                                                               const QString& text);

} // namespace ledra
