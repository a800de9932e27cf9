#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <memory>
#include <span>

namespace ledra {

/// What a command ends with.
enum class ExitCode { done = 0, failed = 1, wrongUsage = 2 };

/// One option of a command, as data: parsing, help, completions and the manual are made from it.
struct OptionSpec
{
    const char* name;      ///< without dashes
    const char* shortName; ///< one letter, or empty
    const char* value;     ///< what the value is called, or empty for a switch
    const char* help;
};

/// What a command is, as data.
struct CommandSpec
{
    const char* name;
    const char* arguments; ///< as the usage line shows them
    const char* summary;   ///< one line
    std::span<const OptionSpec> options;
    bool needsWebEngine;
};

/// The options that every command takes.
std::span<const OptionSpec> commonOptions();

/// A command's arguments after parsing.
class CommandArguments
{
public:
    CommandArguments(const QCommandLineParser& parser, const CommandSpec& spec) : parser_(parser), spec_(spec)
    {}

    QStringList positional() const { return parser_.positionalArguments(); }

    /// Whether an option was given; a command that does not take it never has it.
    bool has(const char* option) const;
    QString value(const char* option) const { return parser_.value(QString::fromLatin1(option)); }

    /// Of an option that may be given several times.
    QStringList values(const char* option) const { return parser_.values(QString::fromLatin1(option)); }

private:
    const QCommandLineParser& parser_;
    const CommandSpec& spec_;
};

/// One command of the program. It finds the application object made and runs the event loop itself if it
/// needs it.
class Command
{
public:
    virtual ~Command() = default;
    virtual const CommandSpec& spec() const = 0;

    /// Whether it lays out documents when it gets these arguments.
    virtual bool needsWebEngine(const CommandArguments&) const { return spec().needsWebEngine; }
    virtual ExitCode run(const CommandArguments& arguments) = 0;
};

/// Whether an argument names a file rather than a record of the data folder: it ends in ".json", holds a
/// slash, or is the standard stream.
bool namesFile(const QString& argument);

/// A line on standard error: "ledra: " and what happened.
void sayFailure(const QString& line);

/// Text on standard output, as it stands.
void writeOutput(const QString& text);
void writeOutput(const QByteArray& bytes);

/// Says what is wrong with a command's arguments and how to learn more.
ExitCode wrongUsage(const CommandSpec& spec, const QString& line);

} // namespace ledra
