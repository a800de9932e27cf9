#pragma once

#include "exchange/profile_importer.h"

namespace ledra {

/// Adds the profiles of a data file to those that are there. That none could be taken in at all is told on
/// the console as well.
///
/// @param apart a profile whose name counts as free
[[nodiscard]] std::expected<ImportedProfiles, ArchiveFailure>
importDataFile(ProfileImporter importer, Console& console, const QString& path,
               const std::optional<QUuid>& apart = {});

} // namespace ledra
