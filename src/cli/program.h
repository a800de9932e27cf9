#pragma once

namespace ledra {

/// Whether the arguments of main() begin with a command, whatever files of such names there are: those are
/// given as "./export".
bool isCommandLine(int argc, char** argv);

/// Runs the program with the arguments of main() and returns its exit code.
int runProgram(int argc, char** argv);

} // namespace ledra
