#pragma once

#include "cli/command.h"

namespace ledra {

/// Writes documents of invoice files.
class ExportCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
