#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace ledra {

enum class Align { left, right };

/// Rows of cells as aligned columns with two blanks between them, for a terminal. Line breaks in cells become
/// blanks.
QString textTable(const std::vector<QStringList>& rows, const std::vector<Align>& columns);

} // namespace ledra
