#pragma once

#include "cli/group_command.h"

namespace ledra {

/// ledra backup: copies of all profiles, and the way back.
class BackupCommand final : public GroupCommand
{
public:
    BackupCommand();
};

} // namespace ledra
