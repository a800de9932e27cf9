#include "cli/export_command.h"

#include "cli/export_run.h"
#include "cli/export_source_finder.h"
#include "cli/list_options.h"

namespace ledra {

namespace {

constexpr std::array ownOptions = {
    OptionSpec{"format", "", "pdf|zugferd|xrechnung|html",
               "The form of the documents; pdf unless said otherwise."},
    OptionSpec{"output", "o", "FILE|FOLDER",
               "Where to write; the current folder unless said otherwise, - for stdout."},
    OptionSpec{"all", "", "", "All records of the profile, or those that the options below choose."},
    OptionSpec{"styling", "", "FILE", "A styling.json; logo and style sheet beside it are taken too."},
    OptionSpec{"profile-file", "", "FILE", "A profile.json for what invoice files leave open."},
    OptionSpec{"allow-missing", "", "", "Write e-invoices that lack required fields as well."},
    OptionSpec{"force", "", "", "Overwrite existing files."},
};
constexpr auto options = withFilterOptions(ownOptions);

constexpr CommandSpec exportSpec = {"export", "ID…|FILE.json…|--all",
                                    "Write invoices, quotes and cancellations as documents.", options, true};

std::optional<QString> usageProblem(const CommandArguments& arguments)
{
    const QStringList positional = arguments.positional();
    if (positional.isEmpty() && !choosesAll(arguments))
        return QStringLiteral("which documents? Give numbers, ids or files, or --all");
    if (!positional.isEmpty() && choosesAll(arguments))
        return QStringLiteral("either single documents or --all with its filters");
    if (arguments.has("format") && !enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()))
        return QStringLiteral("unknown format \"%1\"").arg(arguments.value("format"));
    const bool toStream = arguments.value("output") == standardStream;
    if (toStream && (positional.size() > 1 || choosesAll(arguments)))
        return QStringLiteral("only one document can go to the standard output");
    if (toStream && arguments.has("json"))
        return QStringLiteral("the standard output cannot take both the document and --json");
    const std::expected<InvoiceFilter, QString> filter = filterFrom(arguments);
    return filter ? std::nullopt : std::optional(filter.error());
}

} // namespace

const CommandSpec& ExportCommand::spec() const
{
    return exportSpec;
}

ExitCode ExportCommand::run(const CommandArguments& arguments)
{
    if (const std::optional<QString> problem = usageProblem(arguments))
        return wrongUsage(spec(), *problem);

    CommandConsole console(verbosityOf(arguments));
    ExportSourceFinder finder(arguments, console);
    const auto sources = finder.find();
    if (!sources)
        return sources.error();
    if (sources->empty() && finder.hasMissing())
        return ExitCode::failed;
    if (sources->empty()) {
        if (!arguments.has("quiet"))
            sayFailure(QStringLiteral("there is no such record, so nothing is written"));
        ExportReport(0, reportStyle(arguments)).finish(); // an empty list for programs
        return ExitCode::done;
    }

    const auto named = static_cast<std::size_t>(arguments.positional().size()); // some may be missing
    const ExitCode code = runExport(*sources, choosesAll(arguments) ? 2 : named, arguments, console);
    return finder.hasMissing() ? ExitCode::failed : code;
}

} // namespace ledra
