#pragma once

#include "ui/window_parts.h"

namespace ledra {

/// Asks where they go and writes the data file of all profiles, or of the active one.
void exportAllProfiles(const WindowParts& parts);
void exportActiveProfile(const WindowParts& parts);

} // namespace ledra
