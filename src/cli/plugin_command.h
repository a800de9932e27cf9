#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Installs, lists, updates and runs plugins.
class PluginCommand final : public GroupCommand
{
public:
    PluginCommand();
};

} // namespace ledra
