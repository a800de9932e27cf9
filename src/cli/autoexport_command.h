#pragma once

#include "cli/group_command.h"

namespace ledra {

/// ledra autoexport: final invoices written into a folder by themselves.
class AutoExportCommand final : public GroupCommand
{
public:
    AutoExportCommand();
};

} // namespace ledra
