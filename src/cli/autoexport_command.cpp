#include "cli/autoexport_command.h"

#include "app/auto_export.h"
#include "cli/export_run.h"
#include "cli/json_output.h"
#include "render/qt_web_engine.h"

#include <QEventLoop>

namespace ledra {

namespace {

constexpr CommandSpec autoExportSpec = {"autoexport",
                                        "show | folder FOLDER | run",
                                        "Write all final invoices into a folder of the profile's.",
                                        {},
                                        false};

struct Place
{
    std::optional<QString> folder;
    QStringList formats;
};

void encode(const Place& place, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encodeIfPresent("folder", place.folder);
    UnkeyedEncodingContainer formats = object.nestedUnkeyedContainer("formats");
    for (const QString& format : place.formats)
        formats.encode(format);
}

ExitCode show(Session& session, const QStringList&, const CommandArguments& arguments)
{
    Place place{session.app().autoExportFolder().path(), {}};
    for (const ExportFormat format : autoExportFormats(session.app().settings()))
        place.formats += displayText(format);
    if (arguments.has("json")) {
        writeJson(place);
        return ExitCode::done;
    }
    writeOutput(QStringLiteral("%1\n%2\n")
                    .arg(place.folder.value_or(QStringLiteral("no folder is chosen")),
                         place.formats.isEmpty() ? QStringLiteral("no format is switched on")
                                                 : place.formats.join(QStringLiteral(", "))));
    return ExitCode::done;
}

ExitCode folder(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto done = session.app().autoExportFolder().choose(operands.front());
    return done ? ExitCode::done : failed(done.error());
}

ExitCode run(Session& session, const QStringList&, const CommandArguments& arguments)
{
    LedraApp& app = session.app();
    QtWebEngine engine;
    WebFontManager fonts;
    const auto eligible = static_cast<std::size_t>(std::ranges::count_if(
        app.invoiceManager().invoices(), [](const InvoicePtr& each) { return isAutoExported(**each); }));
    ExportReport report(eligible * autoExportFormats(app.settings()).size(), reportStyle(arguments));
    AutoExport exporter(app, engine, fonts, report);
    if (const std::optional<QString> problem = exporter.problem())
        return failed(*problem);
    QEventLoop loop;
    QObject::connect(&exporter, &AutoExport::finished, &loop, &QEventLoop::quit);
    exporter.exportAllEligible();
    loop.exec();
    report.finish();
    return exporter.hasFailures() ? ExitCode::failed : ExitCode::done;
}

constexpr std::array verbs = {Verb{"show", 0, 0, show}, Verb{"folder", 1, 1, folder},
                              Verb{"run", 0, 0, run, true}};

} // namespace

AutoExportCommand::AutoExportCommand() : GroupCommand(autoExportSpec, verbs, Session::Needs::invoices) {}

} // namespace ledra
