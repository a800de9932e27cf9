#pragma once

namespace ledra {

/// Whether the program is started as a window: without a command, where there is a display.
bool wantsWindow(int argc, char** argv);

/// Opens the window and works until it is closed; the program's exit code.
int runWindow(int argc, char** argv);

} // namespace ledra
