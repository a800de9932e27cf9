#include "cli/program.h"
#include "ui/window_program.h"

int main(int argc, char** argv)
{
    return ledra::wantsWindow(argc, argv) ? ledra::runWindow(argc, argv) : ledra::runProgram(argc, argv);
}
