#pragma once

#include "app/plugin_operations.h"
#include "ui/window_parts.h"

namespace ledra {

/// Asks where the files are to go that a plugin has exported, and puts them there: one under a name that the
/// user chooses, several into a folder.
void saveOutputs(const WindowParts& parts, const QString& title, std::vector<PluginOutput> outputs);

} // namespace ledra
