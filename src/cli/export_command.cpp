#include "cli/export_command.h"

#include "cli/export_report.h"
#include "cli/export_source_finder.h"
#include "cli/list_options.h"
#include "render/qt_web_engine.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>

#include <unistd.h>

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

/// Makes the folder that several documents go into; says why it cannot.
std::optional<QString> prepareFolder(const QString& target)
{
    const QFileInfo info(target);
    if (info.exists() && !info.isDir())
        return target + QStringLiteral(": not a folder");
    if (!QDir().mkpath(target))
        return target + QStringLiteral(": the folder cannot be made");
    if (::access(target.toLocal8Bit().constData(), W_OK) != 0)
        return target + QStringLiteral(": the folder cannot be written to");
    return std::nullopt;
}

bool namesFolder(const QString& target, std::size_t documents)
{
    return documents > 1 || target.endsWith(u'/') || QFileInfo(target).isDir();
}

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

ExitCode runBatch(ExportOrder order, Console& console, ReportStyle style)
{
    ExportReport report(order.sources.size(), style);
    QtWebEngine engine;
    WebFontManager fonts;
    ExportBatch batch(std::move(order), engine, fonts, console, report);
    QEventLoop loop;
    QObject::connect(&batch, &ExportBatch::finished, &loop, &QEventLoop::quit);
    batch.start();
    loop.exec();
    report.finish();
    return batch.hasFailures() ? ExitCode::failed : ExitCode::done;
}

ReportStyle styleFrom(const CommandArguments& arguments)
{
    if (arguments.has("json"))
        return ReportStyle::json;
    return arguments.has("quiet") ? ReportStyle::quiet : ReportStyle::text;
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
        ExportReport(0, styleFrom(arguments)).finish(); // an empty list for programs
        return ExitCode::done;
    }

    ExportOrder order;
    order.sources = *sources;
    order.overwrite = arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
    order.allowMissing = arguments.has("allow-missing");
    order.target = arguments.has("output") ? arguments.value("output") : QStringLiteral(".");
    order.format =
        enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()).value_or(order.format);
    const auto named = static_cast<std::size_t>(arguments.positional().size()); // some may be missing
    const std::size_t count = choosesAll(arguments) ? 2 : named;
    if (order.target != standardStream && namesFolder(order.target, count)) {
        if (const std::optional<QString> problem = prepareFolder(order.target))
            return failed(*problem);
    }
    const ExitCode code = runBatch(std::move(order), console, styleFrom(arguments));
    return finder.hasMissing() ? ExitCode::failed : code;
}

} // namespace ledra
