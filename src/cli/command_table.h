#pragma once

#include "cli/command.h"

#include <memory>
#include <vector>

namespace ledra {

/// All commands, in the order in which the help lists them.
std::vector<std::unique_ptr<Command>> allCommands();

/// The command of that name; nothing when there is none.
std::unique_ptr<Command> findCommand(const QString& name);

/// What "ledra --help" and "ledra COMMAND --help" print.
QString programHelp();
QString commandHelp(const CommandSpec& spec);

} // namespace ledra
