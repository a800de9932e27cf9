#pragma once

#include "cli/session.h"

namespace ledra {

/// Where an archive is written: to the file of "--output", or under the proposed name into its folder or the
/// current one.
QString archiveTarget(const CommandArguments& arguments, const QString& proposedName);

Overwrite overwriteFrom(const CommandArguments& arguments);

/// Tells that an archive was written, or why not.
ExitCode toldArchive(const QString& target, const std::expected<void, ArchiveFailure>& written,
                     const CommandArguments& arguments);

/// Tells which profiles came out of an archive, and why others did not. That none did the console has told.
ExitCode toldImport(const QString& path, const std::expected<ImportedProfiles, ArchiveFailure>& imported,
                    const CommandArguments& arguments);

} // namespace ledra
