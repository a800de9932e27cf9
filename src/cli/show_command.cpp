#include "cli/show_command.h"

#include "app/bare_files.h"
#include "app/invoice_summary.h"
#include "model/region.h"

#include <array>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"json", "", "", "Write one JSON object: the record's own keys and the computed values."},
    OptionSpec{"profile-file", "", "FILE", "A profile.json for what the invoice itself leaves open."},
};

constexpr CommandSpec showSpec = {"show", "FILE.json", "Show an invoice, a quote or a cancellation.", options,
                                  false};

} // namespace

const CommandSpec& ShowCommand::spec() const
{
    return showSpec;
}

ExitCode ShowCommand::run(const CommandArguments& arguments)
{
    if (arguments.positional().size() != 1)
        return wrongUsage(spec(), QStringLiteral("exactly one file is needed"));

    CommandConsole console(CommandConsole::Verbosity::normal);
    const SystemClock clock;
    RandomIdSource ids;
    BareFiles files(clock, ids, systemRegion(), console);
    std::expected<Profile, QString> profile = files.defaultProfile();
    if (arguments.has("profile-file"))
        profile = files.profile(arguments.value("profile-file"));
    const std::expected<Invoice, QString> invoice = files.invoice(arguments.positional().front());
    if (!invoice || !profile) {
        sayFailure(!invoice ? invoice.error() : profile.error());
        return ExitCode::failed;
    }
    if (arguments.has("json"))
        writeOutput(summaryJson(*invoice, *profile, clock.now()));
    else
        writeOutput(summaryText(*invoice, *profile, clock.now()));
    return ExitCode::done;
}

} // namespace ledra
