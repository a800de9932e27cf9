#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Lists and restores what was deleted.
class TrashCommand final : public GroupCommand
{
public:
    TrashCommand();
};

} // namespace ledra
