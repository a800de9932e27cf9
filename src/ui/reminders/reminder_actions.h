#pragma once

#include "render/paginated_document.h"
#include "ui/window_parts.h"

#include <functional>
#include <memory>
#include <vector>

namespace ledra {

/// Makes the next reminder of an invoice and shows it. Of an invoice that is not sent it is made only after a
/// question.
void createReminder(const WindowParts& parts, const QUuid& invoiceId,
                    const std::function<void(const ReminderPtr&)>& show);

/// To the trash, as one step that can be taken back.
void removeReminders(const WindowParts& parts, const std::vector<ReminderPtr>& reminders);

/// The letter for the preview; null when the invoice has been deleted.
std::shared_ptr<const PaginatedDocument> reminderLetter(const WindowParts& parts,
                                                        const ReminderPtr& reminder);

} // namespace ledra
