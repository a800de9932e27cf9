#include "cli/trash_command.h"

#include "cli/json_output.h"
#include "cli/text_table.h"
#include "model/displayed_number.h"

#include <QFileInfo>

namespace ledra {

namespace {

constexpr CommandSpec trashSpec = {
    "trash", "list | restore ID", "List and restore what was deleted.", {}, false};

/// What can be said of something in the trash.
struct Row
{
    QString id;     ///< a record's
    QString number; ///< as displayed
    QString file;   ///< where it was
    QString deleted;
};

Row rowOf(const TrashedRecord& record, const Profile& profile)
{
    Row row{{},
            {},
            record.file.originalPath,
            record.file.deletionDate.toString(QStringLiteral("yyyy-MM-dd HH:mm"))};
    if (record.invoice) {
        row.id = idText(record.invoice->id);
        row.number = displayedNumber(*record.invoice, profile);
    }
    return row;
}

void encode(const Row& row, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", row.id);
    object.encode("formattedNumber", row.number);
    object.encode("file", row.file);
    object.encode("deleted", row.deleted);
}

ExitCode list(Session& session, const QStringList&, const CommandArguments& arguments)
{
    std::vector<Row> rows;
    for (const TrashedRecord& record : session.app().keptFiles().trash())
        rows.push_back(rowOf(record, session.profile()));
    if (arguments.has("json")) {
        writeJson(rows);
        return ExitCode::done;
    }
    std::vector<QStringList> cells;
    cells.reserve(rows.size());
    for (const Row& row : rows)
        cells.push_back({row.deleted, row.number, row.id, row.file});
    writeOutput(textTable(cells, {Align::left, Align::left, Align::left, Align::left}));
    return ExitCode::done;
}

ExitCode restore(Session& session, const QStringList& operands, const CommandArguments&)
{
    constexpr qsizetype shortestPrefix = 6;
    const QString& text = operands.front();
    std::vector<TrashedRecord> candidates;
    for (const TrashedRecord& record : session.app().keptFiles().trash()) {
        const Row row = rowOf(record, session.profile());
        const bool isMeant =
            (text.size() >= shortestPrefix && row.id.startsWith(text, Qt::CaseInsensitive)) ||
            row.number == text || row.file == text || QFileInfo(row.file).fileName() == text;
        if (isMeant)
            candidates.push_back(record);
    }
    if (candidates.empty())
        return failed(QStringLiteral("nothing in the trash is called \"%1\"").arg(text));
    if (candidates.size() > 1)
        sayFailure(QStringLiteral("several are called \"%1\"; the last deleted is restored").arg(text));
    const JobResult<void> restored = session.app().keptFiles().restore(candidates.front());
    return restored ? ExitCode::done : failed(restored.error());
}

constexpr std::array verbs = {Verb{"list", 0, 0, list}, Verb{"restore", 1, 1, restore}};

} // namespace

TrashCommand::TrashCommand() : GroupCommand(trashSpec, verbs, Session::Needs::invoices) {}

} // namespace ledra
