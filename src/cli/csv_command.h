#pragma once

#include "cli/command.h"

namespace ledra {

/// ledra csv: a list of records for spreadsheets.
class CsvCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

} // namespace ledra
