#pragma once

#include "cli/command.h"

namespace ledra {

/// Lists the records of a profile.
class ListCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
