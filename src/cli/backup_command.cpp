#include "cli/backup_command.h"

#include "cli/archive_output.h"
#include "cli/json_output.h"
#include "cli/text_table.h"

#include <QLocale>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"to", "", "FOLDER", "restore: unpack the profiles there, as they are, and nothing else."},
};

constexpr CommandSpec backupSpec = {"backup", "run | if-due | list | restore FILE",
                                    "Make backups of all profiles, and bring them back.", options, false};

ExitCode told(Session& session, BackupManager::Outcome outcome, const CommandArguments& arguments)
{
    const QString file = session.app().backupManager().todaysFile();
    switch (outcome) {
    case BackupManager::Outcome::made:
        if (!arguments.has("quiet"))
            writeOutput(file + u'\n');
        return ExitCode::done;
    case BackupManager::Outcome::madeToday:
        if (!arguments.has("quiet"))
            sayFailure(QStringLiteral("there is a backup of today already: ") + file);
        return ExitCode::done;
    case BackupManager::Outcome::notDue:
        return ExitCode::done;
    case BackupManager::Outcome::failed:
        break; // the console has said why
    }
    return ExitCode::failed;
}

ExitCode run(Session& session, const QStringList&, const CommandArguments& arguments)
{
    return told(session, session.app().backupManager().backUp(), arguments);
}

ExitCode ifDue(Session& session, const QStringList&, const CommandArguments& arguments)
{
    return told(session, session.app().backupManager().backUpIfDue(), arguments);
}

/// A backup as "--json" lists it.
struct Row
{
    QString file;
    Timestamp created;
    qint64 bytes = 0;
};

void encode(const Row& row, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("file", row.file);
    object.encode("created", row.created.toIso8601());
    object.encode("bytes", static_cast<std::int64_t>(row.bytes));
}

ExitCode list(Session& session, const QStringList&, const CommandArguments& arguments)
{
    std::vector<Row> rows;
    std::vector<QStringList> cells;
    const auto backups = session.app().backupManager().backups();
    if (!backups)
        return failed(backups.error().text());
    for (const Backup& backup : *backups) {
        rows.push_back({backup.path, Timestamp::fromDateTime(backup.created), backup.bytes});
        cells.push_back({backup.created.toString(QStringLiteral("yyyy-MM-dd HH:mm")),
                         QLocale::c().formattedDataSize(backup.bytes), backup.path});
    }
    if (arguments.has("json"))
        writeJson(rows);
    else
        writeOutput(textTable(cells, {Align::left, Align::right, Align::left}));
    return ExitCode::done;
}

ExitCode restore(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const QString& path = operands.front();
    if (!arguments.has("to"))
        return toldImport(path, session.app().restoreBackup(path), arguments);
    const auto names = ProfileImporter::unpack(path, arguments.value("to"));
    if (!names)
        return failed(path + QStringLiteral(": ") + names.error().text());
    if (!arguments.has("quiet"))
        writeOutput(names->join(u'\n') + u'\n');
    return ExitCode::done;
}

constexpr std::array verbs = {Verb{"run", 0, 0, run}, Verb{"if-due", 0, 0, ifDue}, Verb{"list", 0, 0, list},
                              Verb{"restore", 1, 1, restore}};

} // namespace

BackupCommand::BackupCommand() : GroupCommand(backupSpec, verbs, Session::Needs::settings) {}

} // namespace ledra
