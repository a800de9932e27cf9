#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Shows and moves the data folder.
class DataCommand final : public GroupCommand
{
public:
    DataCommand();
};

} // namespace ledra
