#pragma once

#include "app/ledra_app.h"
#include "cli/command.h"
#include "store/key_value.h"

#include <expected>
#include <memory>

namespace ledra {

/// What a command works with that needs the data folder: the application, without windows, and its console.
class Session
{
public:
    /// What a command works with. Those that settle where the data lie work without any profile.
    enum class Needs { settings, profiles, invoices };

    /// Starts the application with the common options. What is wrong has been said when there is none.
    static std::expected<std::unique_ptr<Session>, ExitCode> start(const CommandArguments& arguments,
                                                                   Needs needs = Needs::invoices);

    LedraApp& app() { return app_; }
    const Profile& profile() { return **app_.profileManager().activeProfile(); }
    Timestamp now() const { return app_.clock().now(); }
    Console& console() { return console_; }

    /// How texts that a user types are read.
    static ValueReading reading() { return {QLocale::system()}; }

private:
    Session(const CommandArguments& arguments, Needs needs);

    CommandConsole console_;
    LedraApp app_;
};

/// How much the common options ask a command's console to say.
CommandConsole::Verbosity verbosityOf(const CommandArguments& arguments);

/// Says why a job was not done, unless the console has, and what to do about it.
ExitCode failed(const JobFailure& failure);
ExitCode failed(const StoreFailure& failure);
ExitCode failed(const QString& line);

} // namespace ledra
