#pragma once

#include "cli/command.h"

namespace ledra {

/// Says what is wrong with e-invoices, and what would be with those of records.
class ValidateCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
