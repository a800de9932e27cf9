#include "cli/data_command.h"

#include "app/data_move.h"
#include "cli/json_output.h"

#include <QFileInfo>

namespace ledra {

namespace {

constexpr CommandSpec dataSpec = {
    "data", "show | move FOLDER | reset", "Show or move the folder of all data.", {}, false};

struct Place
{
    QString folder;
    bool isCustom = false;
};

void encode(const Place& place, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("folder", place.folder);
    object.encode("custom", place.isCustom);
}

ExitCode show(Session& session, const QStringList&, const CommandArguments& arguments)
{
    const ProfileManager& profiles = session.app().profileManager();
    const Place place{profiles.dataPlace(), profiles.customDataPath().has_value()};
    if (arguments.has("json"))
        writeJson(place);
    else
        writeOutput(place.folder + u'\n');
    return ExitCode::done;
}

/// Tells what became of each profile; those that stayed are failures.
ExitCode report(const Migration& migration, const QString& source, const CommandArguments& arguments)
{
    for (const QString& name : migration.moved) {
        if (!arguments.has("quiet"))
            writeOutput(name + u'\n');
    }
    for (const QString& name : migration.stayed)
        sayFailure(QStringLiteral("%1/%2: stays where it is, since the other folder holds one of that name")
                       .arg(source, name));
    const bool isComplete = !migration.error && migration.stayed.isEmpty();
    return isComplete ? ExitCode::done : ExitCode::failed; // the console has told the error
}

ExitCode move(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    ProfileManager& profiles = session.app().profileManager();
    const QString source = profiles.dataFolder();
    const auto migration = moveData(profiles, QFileInfo(operands.front()).absoluteFilePath());
    return migration ? report(*migration, source, arguments) : failed(migration.error());
}

ExitCode reset(Session& session, const QStringList&, const CommandArguments& arguments)
{
    ProfileManager& profiles = session.app().profileManager();
    const QString source = profiles.dataFolder();
    if (!profiles.customDataPath())
        return failed(QStringLiteral("the data lie in the application's own folder already"));
    return report(profiles.resetDataFolderToDefault(), source, arguments);
}

constexpr std::array verbs = {Verb{"show", 0, 0, show}, Verb{"move", 1, 1, move}, Verb{"reset", 0, 0, reset}};

} // namespace

DataCommand::DataCommand() : GroupCommand(dataSpec, verbs, Session::Needs::settings) {}

} // namespace ledra
