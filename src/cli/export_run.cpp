#include "cli/export_run.h"

#include "cli/session.h"
#include "render/qt_web_engine.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>

#include <unistd.h>

namespace ledra {

namespace {

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

} // namespace

ReportStyle reportStyle(const CommandArguments& arguments)
{
    if (arguments.has("json"))
        return ReportStyle::json;
    return arguments.has("quiet") ? ReportStyle::quiet : ReportStyle::text;
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

ExitCode runExport(std::vector<ExportSource> sources, std::size_t named, const CommandArguments& arguments,
                   Console& console)
{
    ExportOrder order;
    order.sources = std::move(sources);
    order.overwrite = arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
    order.allowMissing = arguments.has("allow-missing");
    order.target = arguments.has("output") ? arguments.value("output") : QStringLiteral(".");
    order.format =
        enumFromRawValue<ExportFormat>(arguments.value("format").toStdString()).value_or(order.format);
    if (order.target != standardStream && namesFolder(order.target, named)) {
        if (const std::optional<QString> problem = prepareFolder(order.target))
            return failed(*problem);
    }
    order.log = exportLog(order.format);
    return runBatch(std::move(order), console, reportStyle(arguments));
}

} // namespace ledra
