#pragma once

#include "cli/group_command.h"

namespace ledra {

/// Shows and changes the look of a profile's documents.
class StylingCommand final : public GroupCommand
{
public:
    StylingCommand();
};

} // namespace ledra
