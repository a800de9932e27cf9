#pragma once

#include "app/ledra_app.h"

namespace ledra {

/// Makes the styling of a style file that of the active profile, as one step that can be taken back: fonts,
/// colours and layout with the logo and the style sheet.
[[nodiscard]] std::expected<void, ArchiveFailure> importStyling(LedraApp& app, const QString& path);

} // namespace ledra
