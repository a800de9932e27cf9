#pragma once

#include <QString>

namespace ledra {

/// What the face of a font is called in the reader's language, "Semibold Italic"; words that nobody knows
/// stay as the font has them.
QString faceName(const QString& displayName);

} // namespace ledra
