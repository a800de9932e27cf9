#include "cli/view_command.h"

#include "app/reader_language.h"
#include "app/received_invoice.h"
#include "cli/session.h"
#include "platform/file_io.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"output", "o", "FILE|FOLDER",
               "Write a page of HTML instead; a folder for several, - for stdout."},
    OptionSpec{"dark", "", "", "Light text on a dark page."},
    OptionSpec{"force", "", "", "Overwrite existing files."},
};

constexpr CommandSpec viewSpec = {"view", "FILE.xml|FILE.pdf…", "Show received e-invoices.", options, false};

std::optional<QString> usageProblem(const CommandArguments& arguments)
{
    const qsizetype count = arguments.positional().size();
    if (count == 0)
        return QStringLiteral("which files? Give e-invoices or PDFs that carry one");
    const QString target = arguments.value("output");
    const bool isStream = target == standardStream;
    if (count > 1 && isStream)
        return QStringLiteral("only one page can go to the standard output");
    if (arguments.has("json") && !target.isEmpty())
        return QStringLiteral("either a page of HTML or --json");
    if (count > 1 && !target.isEmpty() && !QFileInfo(target).isDir())
        return target + QStringLiteral(": not a folder, which several pages need");
    return std::nullopt;
}

/// Writes the page of one file.
std::expected<void, QString> writePage(const OpenedEInvoice& opened, const CommandArguments& arguments)
{
    const ViewerSetting setting{readerLanguage(),
                                arguments.has("dark") ? ViewerAppearance::dark : ViewerAppearance::light};
    const QByteArray page = ViewerHTMLGenerator::html(opened, setting).toUtf8();
    QString target = arguments.value("output");
    if (target == standardStream) {
        writeOutput(page);
        return {};
    }
    if (QFileInfo(target).isDir())
        target = QDir(target).filePath(QFileInfo(opened.viewer.fileName).completeBaseName() +
                                       QStringLiteral(".html"));
    const Overwrite overwrite = arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
    if (const auto written = writeExport(target, page, overwrite); !written)
        return std::unexpected(written.error().text());
    if (!arguments.has("quiet"))
        writeOutput(target + u'\n');
    return {};
}

std::expected<void, QString> view(const QString& path, const CommandArguments& arguments)
{
    const SystemClock clock;
    RandomIdSource ids;
    const std::expected<OpenedEInvoice, ReceivedFileError> opened =
        openReceivedInvoice(path, ViewerXMLParser(clock, ids));
    if (!opened)
        return std::unexpected(path + QStringLiteral(": ") + errorText(opened.error()));
    if (arguments.has("output"))
        return writePage(*opened, arguments);
    if (arguments.has("json"))
        writeOutput(receivedJson(*opened, clock.now()));
    else
        writeOutput(receivedText(*opened, clock.now()));
    return {};
}

} // namespace

const CommandSpec& ViewCommand::spec() const
{
    return viewSpec;
}

ExitCode ViewCommand::run(const CommandArguments& arguments)
{
    if (const std::optional<QString> problem = usageProblem(arguments))
        return wrongUsage(spec(), *problem);
    int failures = 0;
    for (const QString& path : arguments.positional()) {
        const std::expected<void, QString> shown = view(path, arguments);
        if (shown)
            continue;
        ++failures;
        sayFailure(shown.error());
    }
    if (failures > 1)
        sayFailure(QStringLiteral("The selected files could not be read as e-invoices."));
    return failures > 0 ? ExitCode::failed : ExitCode::done;
}

} // namespace ledra
