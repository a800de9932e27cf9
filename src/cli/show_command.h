#pragma once

#include "cli/command.h"

namespace ledra {

/// Shows a record as text or as JSON.
class ShowCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
