#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace ledra {

/// What stands in a line at the places (%1, %2) of a sentence, in their order; nothing when the line is
/// another one. Lines come from below the windows, where nothing is translated, with their values already in
/// them.
std::optional<QStringList> valuesIn(const QString& line, const char* sentence);

/// A sentence with its values, all at once: a value may hold what looks like a place.
QString filled(const QString& sentence, const QStringList& values);

} // namespace ledra
