#pragma once

#include <QString>

namespace ledra {

/// What a window says of a line of the console: the same in the reader's language, or the line where it is
/// none of those that people come across. The console itself keeps to one language, so that lines can be
/// looked up.
QString consoleText(const QString& line);

/// Whether whoever writes that line to the console shows an alert for it as well.
bool isAlerted(const QString& line);

} // namespace ledra
