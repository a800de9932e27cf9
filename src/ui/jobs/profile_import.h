#pragma once

#include "ui/window_parts.h"

namespace ledra {

/// Asks which data file, and adds its profiles beside those that are there.
void importProfiles(const WindowParts& parts);

/// The same with a file that comes from outside, after a question.
void askForProfiles(const WindowParts& parts, const QString& file);

/// Says what came of taking profiles in, out of a data file or a backup: once, with a way to what came and a
/// way back.
void tellImported(const WindowParts& parts, const std::expected<ImportedProfiles, ArchiveFailure>& imported);

} // namespace ledra
