#pragma once

#include "cli/command.h"

namespace ledra {

/// Shows received e-invoices, on the terminal or as pages of HTML.
class ViewCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
