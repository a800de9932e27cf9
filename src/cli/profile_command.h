#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Lists, makes, changes and switches profiles.
class ProfileCommand final : public GroupCommand
{
public:
    ProfileCommand();
};

} // namespace ledra
