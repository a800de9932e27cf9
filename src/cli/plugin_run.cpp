#include "cli/plugin_run.h"

#include "app/plugin_operations.h"
#include "app/record_lookup.h"
#include "cli/archive_output.h"
#include "cli/json_output.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

#include <array>

namespace ledra {

namespace {

/// What the operands behind the operation name.
struct Operands
{
    std::vector<Invoice> records;
    std::optional<PluginInput> input;
};

std::expected<PluginInput, QString> inputFrom(const QString& path)
{
    auto input = readPluginInput(path);
    if (input && path == standardStream)
        input->fileName.clear();
    return input;
}

std::expected<Operands, QString> operandsFrom(Session& session, const QStringList& texts)
{
    Operands operands;
    for (const QString& text : texts) {
        if (namesFile(text) || QFileInfo(text).isFile()) {
            auto input = inputFrom(text);
            if (!input)
                return std::unexpected(input.error());
            if (operands.input)
                return std::unexpected(QStringLiteral("only one file can be read at a time"));
            operands.input = std::move(*input);
            continue;
        }
        const auto record =
            lookUpInvoice(session.app().invoiceManager(), session.app().profileManager(), text);
        if (!record)
            return std::unexpected(record.error());
        operands.records.push_back(***record);
    }
    return operands;
}

std::vector<Invoice> allRecords(Session& session)
{
    std::vector<Invoice> records;
    for (const InvoicePtr& record : session.app().invoiceManager().invoices())
        records.push_back(**record);
    return records;
}

/// Runs the event loop until a job has answered.
template <class T, class Start>
std::expected<T, QString> awaited(const Start& start)
{
    QEventLoop loop;
    std::expected<T, QString> result;
    start([&](const std::expected<T, QString>& answer) {
        result = answer;
        QTimer::singleShot(0, &loop, &QEventLoop::quit); // it may not run yet
    });
    loop.exec();
    return result;
}

ExitCode tellOutput(const std::expected<PluginOutput, QString>& output, Session& session,
                    const CommandArguments& arguments)
{
    if (!output)
        return failed(output.error());
    if (arguments.value("output") == standardStream) {
        writeOutput(output->content);
        return ExitCode::done;
    }
    const QString target = archiveTarget(arguments, output->fileName);
    if (!writePluginOutput(*output, target, overwriteFrom(arguments), session.console()))
        return ExitCode::failed;
    if (!arguments.has("quiet"))
        writeOutput(target + u'\n');
    return ExitCode::done;
}

/// A record that was made or changed, for programs.
struct ChangedRecord
{
    QUuid id;
};
void encode(const ChangedRecord& record, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", record.id);
}

ExitCode tellChanges(const std::expected<PluginChanges, QString>& changes, const CommandArguments& arguments)
{
    if (!changes)
        return failed(changes.error());
    std::vector<ChangedRecord> rows;
    for (const QUuid& id : changes->records)
        rows.push_back({id});
    if (arguments.has("json")) {
        writeJson(rows);
    } else if (!arguments.has("quiet")) {
        for (const ChangedRecord& row : rows)
            writeOutput(idText(row.id) + u'\n');
    }
    for (const QString& problem : changes->problems)
        sayFailure(problem);
    return changes->problems.isEmpty() ? ExitCode::done : ExitCode::failed;
}

/// What is run, on what.
struct Run
{
    Session& session;
    const QString& plugin;
    const Operands& operands;
    const CommandArguments& arguments;
};

ExitCode exportOne(const Run& run)
{
    ExitCode code = ExitCode::done;
    for (const Invoice& invoice : run.operands.records) {
        const auto output = awaited<PluginOutput>([&](const auto& done) {
            run.session.app().pluginJobs().exportInvoice(run.plugin, invoice, done);
        });
        if (tellOutput(output, run.session, run.arguments) != ExitCode::done)
            code = ExitCode::failed;
    }
    return code;
}

ExitCode exportMany(const Run& run)
{
    const std::vector<Invoice> records =
        run.operands.records.empty() ? allRecords(run.session) : run.operands.records;
    const auto output = awaited<PluginOutput>(
        [&](const auto& done) { run.session.app().pluginJobs().exportInvoices(run.plugin, records, done); });
    return tellOutput(output, run.session, run.arguments);
}

ExitCode importMany(const Run& run)
{
    const auto changes = awaited<PluginChanges>([&](const auto& done) {
        run.session.app().pluginJobs().importInvoices(run.plugin, run.operands.input, done);
    });
    return tellChanges(changes, run.arguments);
}

ExitCode updateMany(const Run& run)
{
    const std::vector<Invoice> records =
        run.operands.records.empty() ? allRecords(run.session) : run.operands.records;
    const auto changes = awaited<PluginChanges>([&](const auto& done) {
        run.session.app().pluginJobs().updateInvoices(run.plugin, records, run.operands.input, done);
    });
    return tellChanges(changes, run.arguments);
}

struct Operation
{
    QStringView name;
    bool takesRecords;
    bool takesFile;
    bool needsRecord;
    ExitCode (*run)(const Run& run);
};

constexpr std::array operations = {
    Operation{u"exportInvoice", true, false, true, exportOne},
    Operation{u"exportInvoices", true, false, false, exportMany},
    Operation{u"importInvoices", false, true, false, importMany},
    Operation{u"updateInvoices", true, true, false, updateMany},
};

} // namespace

ExitCode runPlugin(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const QString& name = operands.at(1);
    const auto operation =
        std::ranges::find_if(operations, [&](const Operation& row) { return name == row.name; });
    if (operation == operations.end())
        return failed(QStringLiteral("there is no operation \"%1\"; there are exportInvoice, exportInvoices, "
                                     "importInvoices and updateInvoices")
                          .arg(name));
    const auto found = operandsFrom(session, operands.mid(2));
    if (!found)
        return failed(found.error());
    if ((found->input && !operation->takesFile) || (!found->records.empty() && !operation->takesRecords) ||
        (found->records.empty() && operation->needsRecord))
        return failed(
            QStringLiteral("%1 takes %2")
                .arg(name, operation->takesRecords ? QStringLiteral("records") : QStringLiteral("a file")));
    return operation->run({session, operands.front(), *found, arguments});
}

} // namespace ledra
