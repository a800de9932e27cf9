#pragma once

#include "exchange/profile_importer.h"

namespace ledra {

/// Whether there is nothing but the profile that the first start made, without any record and as it was made.
bool isUntouched(const ProfileManager& profiles, const QString& region);

/// Takes the profiles of a backup in beside those that are there. On a fresh start they come in place of the
/// profile that the start made, under their own names, and the first of them is the active one.
[[nodiscard]] std::expected<ImportedProfiles, ArchiveFailure>
restoreBackup(StoreContext& context, ProfileManager& profiles, const QString& path);

} // namespace ledra
