#pragma once

namespace ledra {

/// Runs the program with the arguments of main() and returns its exit code.
int runProgram(int argc, char** argv);

} // namespace ledra
