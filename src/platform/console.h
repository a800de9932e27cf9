#pragma once

#include <QString>

namespace ledra {

/// Where the fixed texts of failures and progress go. In a window both kinds go to standard output; in a
/// command failures go to standard error and informational lines only appear on request, so that the
/// command's own output stays clean.
class Console
{
public:
    virtual ~Console() = default;

    /// Something went wrong; one line.
    virtual void failure(const QString& line) = 0;

    /// Something worth knowing happened ("Loaded …"); one line.
    virtual void information(const QString& line) = 0;
};

/// The console of a command.
class CommandConsole final : public Console
{
public:
    enum class Verbosity { quiet, normal, verbose };

    explicit CommandConsole(Verbosity verbosity) : verbosity_(verbosity) {}

    void failure(const QString& line) override;
    void information(const QString& line) override;

private:
    Verbosity verbosity_;
};

} // namespace ledra
