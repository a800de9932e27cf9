#include "cli/program.h"

int main(int argc, char** argv)
{
    return ledra::runProgram(argc, argv);
}
