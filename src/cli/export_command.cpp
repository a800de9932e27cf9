#include "cli/export_command.h"

#include "app/export_batch.h"
#include "cli/export_report.h"
#include "model/region.h"
#include "render/qt_web_engine.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>

#include <unistd.h>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"format", "", "pdf|html", "The form of the documents; pdf unless said otherwise."},
    OptionSpec{"output", "o", "FILE|FOLDER",
               "Where to write; the current folder unless said otherwise, - for stdout."},
    OptionSpec{"styling", "", "FILE", "A styling.json; logo and style sheet beside it are taken too."},
    OptionSpec{"profile-file", "", "FILE", "A profile.json for what the invoices themselves leave open."},
    OptionSpec{"force", "", "", "Overwrite existing files."},
    OptionSpec{"json", "", "", "Write what happened to each document as a JSON list."},
};

constexpr CommandSpec exportSpec = {"export", "FILE.json…",
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

/// What the arguments order; the error is one line.
std::expected<ExportOrder, QString> orderOf(const CommandArguments& arguments, BareFiles& files)
{
    ExportOrder order;
    const QStringList positional = arguments.positional();
    order.files.assign(positional.begin(), positional.end());
    order.overwrite = arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
    order.target = arguments.has("output") ? arguments.value("output") : QStringLiteral(".");
    order.format =
        enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()).value_or(order.format);

    std::expected<Styling, QString> styling = files.defaultStyling();
    if (arguments.has("styling"))
        styling = files.styling(arguments.value("styling"));
    if (!styling)
        return std::unexpected(styling.error());
    order.styling = *styling;

    std::expected<Profile, QString> profile = files.defaultProfile();
    if (arguments.has("profile-file"))
        profile = files.profile(arguments.value("profile-file"));
    if (!profile)
        return std::unexpected(profile.error());
    order.profile = *profile;
    return order;
}

std::optional<QString> usageProblem(const CommandArguments& arguments)
{
    const auto count = arguments.positional().size();
    if (count == 0)
        return QStringLiteral("no file given");
    if (arguments.has("format") && !enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()))
        return QStringLiteral("unknown format \"%1\"").arg(arguments.value("format"));
    const bool toStream = arguments.value("output") == standardStream;
    if (toStream && count > 1)
        return QStringLiteral("only one document can go to the standard output");
    if (toStream && arguments.has("json"))
        return QStringLiteral("the standard output cannot take both the document and --json");
    return std::nullopt;
}

ExitCode runBatch(ExportOrder order, BareFiles& files, Console& console, ReportStyle style)
{
    ExportReport report(order.files.size(), style);
    QtWebEngine engine;
    WebFontManager fonts;
    ExportBatch batch(std::move(order), files, engine, fonts, console, report);
    QEventLoop loop;
    QObject::connect(&batch, &ExportBatch::finished, &loop, &QEventLoop::quit);
    batch.start();
    loop.exec();
    report.finish();
    return batch.hasFailures() ? ExitCode::failed : ExitCode::done;
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

    CommandConsole console(arguments.has("verbose") ? CommandConsole::Verbosity::verbose
                                                    : CommandConsole::Verbosity::normal);
    const SystemClock clock;
    RandomIdSource ids;
    BareFiles files(clock, ids, systemRegion(), console);
    const std::expected<ExportOrder, QString> order = orderOf(arguments, files);
    if (!order) {
        sayFailure(order.error());
        return ExitCode::failed;
    }
    if (order->target != standardStream && namesFolder(order->target, order->files.size())) {
        if (const std::optional<QString> problem = prepareFolder(order->target)) {
            sayFailure(*problem);
            return ExitCode::failed;
        }
    }
    const ReportStyle style = arguments.has("json")    ? ReportStyle::json
                              : arguments.has("quiet") ? ReportStyle::quiet
                                                       : ReportStyle::text;
    return runBatch(*order, files, console, style);
}

} // namespace ledra
