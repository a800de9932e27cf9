#include "cli/command.h"

#include "platform/file_io.h"

#include <array>
#include <cstdio>

namespace ledra {

namespace {

constexpr std::array common = {
    OptionSpec{"help", "h", "", "Show what the command does and what it takes."},
    OptionSpec{"profile", "", "NAME", "Work with this profile; the active one stays."},
    OptionSpec{"json", "", "", "Write the result for programs."},
    OptionSpec{"quiet", "q", "", "Say nothing but failures."},
    OptionSpec{"verbose", "", "", "Say what is done on the way."},
};

} // namespace

std::span<const OptionSpec> commonOptions()
{
    return common;
}

bool CommandArguments::has(const char* option) const
{
    const auto isIt = [option](const OptionSpec& row) { return qstrcmp(row.name, option) == 0; };
    const bool isTaken =
        std::ranges::any_of(spec_.options, isIt) || std::ranges::any_of(commonOptions(), isIt);
    return isTaken && parser_.isSet(QString::fromLatin1(option));
}

bool namesFile(const QString& argument)
{
    return argument == standardStream || argument.contains(u'/') ||
           argument.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive);
}

void sayFailure(const QString& line)
{
    std::fprintf(stderr, "ledra: %s\n", line.toUtf8().constData());
}

void writeOutput(const QString& text)
{
    writeOutput(text.toUtf8());
}

void writeOutput(const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

ExitCode wrongUsage(const CommandSpec& spec, const QString& line)
{
    const QString name = QString::fromLatin1(spec.name);
    sayFailure(QStringLiteral("%1: %2 (see \"ledra %1 --help\")").arg(name, line));
    return ExitCode::wrongUsage;
}

} // namespace ledra
