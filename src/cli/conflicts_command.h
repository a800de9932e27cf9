#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Shows versions of records that had to give way to others.
class ConflictsCommand final : public GroupCommand
{
public:
    ConflictsCommand();
};

} // namespace ledra
