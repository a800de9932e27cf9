#include "app/styling_import.h"

#include "app/styling_step.h"

namespace ledra {

std::expected<void, ArchiveFailure> importStyling(LedraApp& app, const QString& path)
{
    StylingManager& manager = app.stylingManager();
    const std::optional<Styling> before =
        manager.styling() ? std::optional(**manager.styling()) : std::nullopt;
    const auto imported = app.stylingImporter().importFile(path);
    // One that fails half-way has changed something as well.
    if (before && **manager.styling() != *before)
        app.undoStack().push(stylingStep(manager, *before, EditKind::single).release());
    return imported;
}

} // namespace ledra
