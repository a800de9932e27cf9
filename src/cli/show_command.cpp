#include "cli/show_command.h"

#include "app/bare_files.h"
#include "app/invoice_summary.h"
#include "app/record_lookup.h"
#include "cli/session.h"
#include "model/region.h"

#include <array>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"profile-file", "", "FILE", "A profile.json for what an invoice file leaves open."},
};

constexpr CommandSpec showSpec = {"show", "ID|FILE.json", "Show an invoice, a quote or a cancellation.",
                                  options, false};

void show(const Invoice& invoice, const Profile& profile, Timestamp now, const CommandArguments& arguments)
{
    if (arguments.has("json"))
        writeOutput(summaryJson(invoice, profile, now));
    else
        writeOutput(summaryText({invoice, profile, now}));
}

ExitCode showFile(const QString& path, const CommandArguments& arguments)
{
    CommandConsole console(verbosityOf(arguments));
    const SystemClock clock;
    RandomIdSource ids;
    BareFiles files(clock, ids, systemRegion(), console);
    std::expected<Profile, QString> profile = files.defaultProfile();
    if (arguments.has("profile-file"))
        profile = files.profile(arguments.value("profile-file"));
    const std::expected<Invoice, QString> invoice = files.invoice(path);
    if (!invoice || !profile)
        return failed(!invoice ? invoice.error() : profile.error());
    show(*invoice, *profile, clock.now(), arguments);
    return ExitCode::done;
}

ExitCode showRecord(const QString& name, const CommandArguments& arguments)
{
    const auto session = Session::start(arguments);
    if (!session)
        return session.error();
    LedraApp& app = (*session)->app();
    const auto record = lookUpInvoice(app.invoiceManager(), app.profileManager(), name);
    if (!record)
        return failed(record.error());
    show(***record, (*session)->profile(), (*session)->now(), arguments);
    return ExitCode::done;
}

} // namespace

const CommandSpec& ShowCommand::spec() const
{
    return showSpec;
}

ExitCode ShowCommand::run(const CommandArguments& arguments)
{
    if (arguments.positional().size() != 1)
        return wrongUsage(spec(), QStringLiteral("exactly one record or file is needed"));
    const QString name = arguments.positional().front();
    return namesFile(name) ? showFile(name, arguments) : showRecord(name, arguments);
}

} // namespace ledra
