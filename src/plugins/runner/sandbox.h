#pragma once

#include <cstddef>

namespace ledra {

/// Gives up, for good, what a script has no business with: after this the process can read and write the
/// pipes it has, compute and take memory up to a limit. It cannot open files, connect, start or touch other
/// processes, nor run memory as code. False where the kernel refuses; then nothing foreign may run.
///
/// @param memory bytes that may be taken on top of what is in use now
[[nodiscard]] bool enterSandbox(std::size_t memory);

/// The process ends when its parent does, and holds none of its parent's files but the standard ones.
void bindToParent();

/// Tries what the sandbox forbids and prints a line on each; returns how many things were not forbidden.
int checkSandbox();

} // namespace ledra
