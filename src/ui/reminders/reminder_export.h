#pragma once

#include "ui/window_parts.h"

#include <vector>

namespace ledra {

/// Asks where to, and writes the letters as PDF files there. Those whose invoice has been deleted are left
/// out.
void exportReminders(const WindowParts& parts, const std::vector<ReminderPtr>& reminders);

/// Writes them without a question; what comes of it is told in the window.
///
/// @param target a file for one letter, a folder for several
void writeReminders(const WindowParts& parts, const std::vector<ReminderPtr>& reminders,
                    const QString& target);

} // namespace ledra
