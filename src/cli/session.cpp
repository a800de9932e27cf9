#include "cli/session.h"

namespace ledra {

CommandConsole::Verbosity verbosityOf(const CommandArguments& arguments)
{
    if (arguments.has("quiet"))
        return CommandConsole::Verbosity::quiet;
    return arguments.has("verbose") ? CommandConsole::Verbosity::verbose : CommandConsole::Verbosity::normal;
}

namespace {

/// The store has said why it could make none.
QString noProfileText(const ProfileManager& profiles)
{
    const QString text =
        profiles.dataPlace() + QStringLiteral(": holds no profile, and none can be made there");
    return profiles.customDataPath()
               ? text + QStringLiteral(" (\"ledra data reset\" goes back to the application's own folder)")
               : text;
}

} // namespace

Session::Session(const CommandArguments& arguments, Needs needs)
    : console_(verbosityOf(arguments)),
      app_({.console = console_,
            .watchesFolders = false,
            .loadsInvoices = needs == Needs::invoices,
            .profile = arguments.has("profile") ? std::optional(arguments.value("profile")) : std::nullopt})
{}

std::expected<std::unique_ptr<Session>, ExitCode> Session::start(const CommandArguments& arguments,
                                                                 Needs needs)
{
    std::unique_ptr<Session> session(new Session(arguments, needs));
    if (const std::optional<QString>& problem = session->app_.launchProblem())
        return std::unexpected(failed(*problem));
    const ProfileManager& profiles = session->app_.profileManager();
    if (needs != Needs::settings && !profiles.profileFolder(session->profile()))
        return std::unexpected(failed(noProfileText(profiles)));
    return session;
}

ExitCode failed(const QString& line)
{
    sayFailure(line);
    return ExitCode::failed;
}

ExitCode failed(const StoreFailure& failure)
{
    return failure.isReported ? ExitCode::failed : failed(failure.text);
}

ExitCode failed(const JobFailure& failure)
{
    if (failure.isReported)
        return ExitCode::failed;
    const bool canBeForced = failure.kind == JobFailure::Kind::guarded;
    return failed(failure.text +
                  (canBeForced ? QStringLiteral(" (--force does it all the same)") : QString()));
}

} // namespace ledra
