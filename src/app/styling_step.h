#pragma once

#include "app/undoable_jobs.h"
#include "store/styling_manager.h"

namespace ledra {

/// A change of the active profile's styling, which has been made when the step is pushed. Going back changes
/// the fields that it changed, logo and style sheet among them, and no others; a step of a profile that is no
/// longer the active one does nothing.
/// @param before the styling as it was; now it is as the step leaves it
std::unique_ptr<QUndoCommand> stylingStep(StylingManager& manager, const Styling& before, EditKind kind);

} // namespace ledra
