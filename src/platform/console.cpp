#include "platform/console.h"

#include <cstdio>

namespace ledra {

namespace {

void writeLine(std::FILE* stream, const QString& line)
{
    std::fprintf(stream, "%s\n", line.toUtf8().constData());
    std::fflush(stream);
}

} // namespace

void CommandConsole::failure(const QString& line)
{
    writeLine(stderr, line);
}

void CommandConsole::information(const QString& line)
{
    if (verbosity_ == Verbosity::verbose)
        writeLine(stderr, line);
}

} // namespace ledra
