#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Lists and sets what holds for the whole application.
class SettingsCommand final : public GroupCommand
{
public:
    SettingsCommand();
};

} // namespace ledra
