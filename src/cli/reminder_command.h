#pragma once

#include "cli/group_command.h"

namespace ledra {

/// ledra reminder: letters that remind of invoices.
class ReminderCommand final : public GroupCommand
{
public:
    ReminderCommand();
};

} // namespace ledra
