#include "cli/archive_output.h"

#include "cli/json_output.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

/// A profile that came in.
struct Row
{
    QUuid id;
    QString name;
};

void encode(const Row& row, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", row.id);
    object.encode("name", row.name);
}

} // namespace

QString archiveTarget(const CommandArguments& arguments, const QString& proposedName)
{
    const QString target = arguments.value("output");
    if (target.isEmpty())
        return proposedName;
    return QFileInfo(target).isDir() ? QDir(target).filePath(proposedName) : target;
}

Overwrite overwriteFrom(const CommandArguments& arguments)
{
    return arguments.has("force") ? Overwrite::replace : Overwrite::refuse;
}

ExitCode toldArchive(const QString& target, const std::expected<void, ArchiveFailure>& written,
                     const CommandArguments& arguments)
{
    if (!written)
        return failed(written.error().text());
    if (!arguments.has("quiet"))
        writeOutput(target + u'\n');
    return ExitCode::done;
}

ExitCode toldImport(const QString& path, const std::expected<ImportedProfiles, ArchiveFailure>& imported,
                    const CommandArguments& arguments)
{
    if (!imported)
        return ExitCode::failed; // the console has said why
    std::vector<Row> rows;
    for (const ProfilePtr& profile : imported->profiles)
        rows.push_back({(*profile)->id, (*profile)->displayName()});
    if (arguments.has("json")) {
        writeJson(rows);
    } else if (!arguments.has("quiet")) {
        for (const Row& row : rows)
            writeOutput(row.name + u'\n');
    }
    for (const ArchiveFailure& failure : imported->failures)
        sayFailure(path + QStringLiteral(": ") + failure.text());
    if (imported->failures.empty())
        return ExitCode::done;
    for (const QString& line : imported->summary().split(u'\n', Qt::SkipEmptyParts))
        sayFailure(line);
    return ExitCode::failed;
}

} // namespace ledra
