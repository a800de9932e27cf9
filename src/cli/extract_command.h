#pragma once

#include "cli/command.h"

namespace ledra {

/// Finds the fields of an invoice in free text.
class ExtractCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
