#pragma once

#include "cli/command.h"

namespace ledra {

/// Brings invoices back from PDFs, and takes e-invoices in as drafts.
class ImportCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
