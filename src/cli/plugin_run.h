#pragma once

#include "cli/session.h"

namespace ledra {

/// "ledra plugin run ID OPERATION [ID…|FILE]": calls an entry point of a plugin and does with the result what
/// the entry point is for.
ExitCode runPlugin(Session& session, const QStringList& operands, const CommandArguments& arguments);

} // namespace ledra
