#pragma once

#include "store/profile_manager.h"

#include <QString>

#include <expected>

namespace ledra {

/// Moves all profiles into another folder, which is the data folder from then on. The error says why that
/// folder will not do; nothing has happened then.
[[nodiscard]] std::expected<Migration, QString> moveData(ProfileManager& profiles, const QString& folder);

} // namespace ledra
