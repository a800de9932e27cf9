#include "cli/program.h"
#include "ui/window_program.h"

int main(int argc, char** argv)
{
    const bool opensWindow = !ledra::isCommandLine(argc, argv) && ledra::wantsWindow(argc, argv);
    return opensWindow ? ledra::runWindow(argc, argv) : ledra::runProgram(argc, argv);
}
