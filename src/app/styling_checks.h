#pragma once

#include <QString>

#include <optional>

namespace ledra {

// Why a file cannot be a styling's, in one line; nothing when it can, or when its extension is the fault, for
// which the store has its own words.

std::optional<QString> logoProblem(const QString& path);
std::optional<QString> styleSheetProblem(const QString& path);

} // namespace ledra
