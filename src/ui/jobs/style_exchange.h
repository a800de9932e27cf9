#pragma once

#include "ui/window_parts.h"

namespace ledra {

/// Asks where it goes and writes the style file of the active profile.
void exportStyle(const WindowParts& parts);

/// Asks which style file, and gives the active profile its styling; one step that can be taken back.
void importStyle(const WindowParts& parts);

/// The same with a file that comes from outside, after a question.
void askForStyle(const WindowParts& parts, const QString& file);

} // namespace ledra
