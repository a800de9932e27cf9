#include "cli/conflicts_command.h"

#include "cli/json_output.h"
#include "cli/text_table.h"
#include "store/json_reader.h"

#include <QFileInfo>

namespace ledra {

namespace {

constexpr CommandSpec conflictsSpec = {
    "conflicts",
    "list | show N | take N | drop N",
    "See versions of records that had to give way, and choose between them.",
    {},
    false};

void encodeVersion(const KeptVersion& version, KeyedEncodingContainer object)
{
    object.encode("number", version.number);
    object.encode("of", version.target);
    object.encode("keptAs", version.path);
    object.encode("secondFile", version.isSecondFile);
}

struct Versions
{
    std::vector<KeptVersion> all;
};

void encode(const Versions& versions, JSONEncoderState& state)
{
    UnkeyedEncodingContainer list = state.unkeyedContainer();
    for (const KeptVersion& version : versions.all)
        encodeVersion(version, list.nestedKeyedContainer());
}

ExitCode list(Session& session, const QStringList&, const CommandArguments& arguments)
{
    const std::vector<KeptVersion> versions = session.app().keptFiles().conflicts();
    if (arguments.has("json")) {
        writeJson(Versions{versions});
        return ExitCode::done;
    }
    std::vector<QStringList> cells;
    cells.reserve(versions.size());
    for (const KeptVersion& version : versions)
        cells.push_back(
            {QString::number(version.number),
             QFileInfo(version.path).lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm")),
             version.isSecondFile ? QStringLiteral("second file of") : QStringLiteral("version of"),
             version.target});
    writeOutput(textTable(cells, {Align::right, Align::left, Align::left, Align::left}));
    return ExitCode::done;
}

std::expected<KeptVersion, ExitCode> named(Session& session, const QString& text)
{
    const auto version = session.app().keptFiles().conflict(text.toInt());
    if (!version)
        return std::unexpected(failed(QStringLiteral("there is no conflict \"%1\"").arg(text)));
    return *version;
}

ExitCode show(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto version = named(session, operands.front());
    if (!version)
        return version.error();
    const auto content = readFile(version->path, largestRecordFile);
    if (!content)
        return failed(content.error().text());
    writeOutput(*content);
    return ExitCode::done;
}

ExitCode result(const JobResult<void>& done)
{
    return done ? ExitCode::done : failed(done.error());
}

ExitCode take(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto version = named(session, operands.front());
    return version ? result(session.app().keptFiles().take(*version)) : version.error();
}

ExitCode drop(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto version = named(session, operands.front());
    return version ? result(session.app().keptFiles().drop(*version)) : version.error();
}

constexpr std::array verbs = {Verb{"list", 0, 0, list}, Verb{"show", 1, 1, show}, Verb{"take", 1, 1, take},
                              Verb{"drop", 1, 1, drop}};

} // namespace

ConflictsCommand::ConflictsCommand() : GroupCommand(conflictsSpec, verbs, Session::Needs::invoices) {}

} // namespace ledra
