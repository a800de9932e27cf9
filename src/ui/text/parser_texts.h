#pragma once

#include "textparser/apply_extraction.h"

#include <QString>

namespace ledra {

// What the text parser says, in the language of the window. Values within a text stay as they are, and so
// does a text that is not in its table.

QString parserText(const QString& line);
QString parserText(const UnusedText& unused);

} // namespace ledra
