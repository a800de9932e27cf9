#pragma once

#include "textparser/apply_extraction.h"

#include <QString>

namespace ledra {

// What the text parser says, in the language of the window. A text that is not in its table stays as it is.

QString parserText(const QString& line);
QString parserText(const UnusedText& unused);

} // namespace ledra
