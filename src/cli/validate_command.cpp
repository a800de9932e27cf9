#include "cli/validate_command.h"

#include "app/einvoice_check.h"
#include "cli/export_source_finder.h"
#include "cli/json_output.h"
#include "cli/session.h"
#include "einvoice/received_file.h"
#include "platform/file_io.h"

#include <QFileInfo>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"profile-file", "", "FILE", "A profile.json for what invoice files leave open."},
};

constexpr CommandSpec validateSpec = {"validate", "ID|FILE.json|FILE.xml|FILE.pdf…",
                                      "Check e-invoices, or records before they become some.", options,
                                      false};

/// What was found about one file or record.
struct Report
{
    QString file; ///< as it was named
    std::vector<Finding> findings;
};

} // namespace

template <>
inline constexpr std::tuple jsonSchema<Finding> = {
    JSONKey{"level", &Finding::level},
    JSONKey{"code", &Finding::code},
    JSONKey{"text", &Finding::text},
};

template <>
inline constexpr std::tuple jsonSchema<Report> = {
    JSONKey{"file", &Report::file},
    JSONKey{"findings", &Report::findings},
};

namespace {

/// Whether an argument names a document that was received, rather than a record.
bool namesReceived(const QString& argument)
{
    const QString suffix = QFileInfo(argument).suffix().toLower();
    return suffix == u"xml" || suffix == u"pdf" || argument == standardStream;
}

Report unreadable(const QString& argument, const QString& reason)
{
    return {argument, {{FindingLevel::error, QStringLiteral("file"), reason}}};
}

Report checkFile(const QString& path)
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestReceivedFile);
    return content ? Report{path, checkReceived(*content)} : unreadable(path, content.error().reason);
}

Report checkSource(const ExportSource& source)
{
    const std::expected<ExportRecord, QString> record = source.read();
    return record ? Report{source.label, checkInvoice(record->invoice, *source.setting)}
                  : unreadable(source.label, record.error());
}

QString line(const Report& report, const Finding& finding)
{
    return QStringLiteral("%1: %2 %3: %4\n")
        .arg(report.file, displayText(finding.level).toLower(), finding.code, finding.text);
}

void writeReports(const std::vector<Report>& reports, const CommandArguments& arguments)
{
    if (arguments.has("json")) {
        writeJson(reports);
        return;
    }
    for (const Report& report : reports) {
        for (const Finding& finding : report.findings) {
            if (!arguments.has("quiet") || finding.level == FindingLevel::error)
                writeOutput(line(report, finding));
        }
        if (!arguments.has("quiet") && !hasErrors(report.findings))
            writeOutput(report.file + QStringLiteral(": ok\n"));
    }
}

} // namespace

const CommandSpec& ValidateCommand::spec() const
{
    return validateSpec;
}

ExitCode ValidateCommand::run(const CommandArguments& arguments)
{
    const QStringList names = arguments.positional();
    if (names.isEmpty())
        return wrongUsage(spec(), QStringLiteral("what? Give records, invoice files, XML files or PDFs"));
    CommandConsole console(verbosityOf(arguments));
    ExportSourceFinder finder(arguments, console);
    std::vector<Report> reports;
    for (const QString& name : names) {
        if (namesReceived(name)) {
            reports.push_back(checkFile(name));
            continue;
        }
        const auto sources = finder.find({name});
        if (!sources)
            return sources.error();
        for (const ExportSource& source : *sources)
            reports.push_back(checkSource(source));
    }
    writeReports(reports, arguments);
    const bool isWrong = finder.hasMissing() || std::ranges::any_of(reports, [](const Report& report) {
                             return hasErrors(report.findings);
                         });
    return isWrong ? ExitCode::failed : ExitCode::done;
}

} // namespace ledra
