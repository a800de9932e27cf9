#include "cli/profile_command.h"

#include "app/data_file_import.h"
#include "app/reader_language.h"
#include "app/record_lookup.h"
#include "cli/archive_output.h"
#include "cli/assignments.h"
#include "cli/json_output.h"
#include "cli/text_table.h"
#include "store/profile_json.h"

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"all", "", "", "export: all profiles."},
    OptionSpec{
        "output", "o", "FILE|FOLDER",
        "export: the data file; in the current folder, with the day in its name, unless said otherwise."},
    OptionSpec{"force", "", "", "export: overwrite an existing file."},
};

constexpr CommandSpec profileSpec = {
    "profile",
    "list | show [P] | create NAME | rename P NAME | use P | set P KEY=VALUE… | delete P | "
    "export [P…|--all] | import FILE",
    "List, make, change and switch profiles, and move them as data files.", options, false};

/// What "list" says of a profile.
struct Row
{
    QUuid id;
    QString name;
    QString folder;
    bool active = false;
};

void encode(const Row& row, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", row.id);
    object.encode("name", row.name);
    object.encode("folder", row.folder);
    object.encode("active", row.active);
}

QString folderName(const ProfilePtr& profile)
{
    return (*profile)->profileName.value_or(QString());
}

ExitCode list(Session& session, const QStringList&, const CommandArguments& arguments)
{
    const ProfileManager& profiles = session.app().profileManager();
    std::vector<Row> rows;
    std::vector<QStringList> cells;
    for (const ProfilePtr& profile : profiles.profiles()) {
        const bool isActive = profile == profiles.activeProfile();
        rows.push_back({(*profile)->id, (*profile)->displayName(), folderName(profile), isActive});
        const QString& business = (*profile)->businessName;
        cells.push_back({isActive ? QStringLiteral("*") : QString(), (*profile)->displayName(),
                         business.isEmpty() ? (*profile)->name : business, idText((*profile)->id)});
    }
    if (arguments.has("json"))
        writeJson(rows);
    else
        writeOutput(textTable(cells, {Align::left, Align::left, Align::left, Align::left}));
    return ExitCode::done;
}

/// Finds the profile that is named, and says so when there is none.
std::expected<ProfilePtr, ExitCode> named(Session& session, const QString& text)
{
    auto profile = lookUpProfile(session.app().profileManager(), text);
    if (!profile)
        return std::unexpected(failed(profile.error()));
    return *profile;
}

ExitCode show(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    ProfilePtr profile = session.app().profileManager().activeProfile();
    if (!operands.isEmpty()) {
        const auto found = named(session, operands.front());
        if (!found)
            return found.error();
        profile = *found;
    }
    if (arguments.has("json")) {
        writeJson(**profile);
        return ExitCode::done;
    }
    std::vector<QStringList> cells = {{QStringLiteral("folder"), folderName(profile)}};
    for (const KeyText& pair : keyTexts(**profile))
        cells.push_back({pair.key, pair.text});
    writeOutput(textTable(cells, {Align::left, Align::left}));
    return ExitCode::done;
}

ExitCode create(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const auto created = session.app().profileManager().createProfile(operands.front());
    if (!created)
        return failed(created.error());
    if (arguments.has("json"))
        writeJson(***created);
    else if (!arguments.has("quiet"))
        writeOutput(idText((**created)->id) + u'\n');
    return ExitCode::done;
}

ExitCode result(const std::expected<void, StoreFailure>& done)
{
    return done ? ExitCode::done : failed(done.error());
}

ExitCode rename(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto profile = named(session, operands[0]);
    if (!profile)
        return profile.error();
    if (const std::optional<QString> problem = profileNameProblem(operands[1]))
        return failed(*problem);
    const Profile value = ***profile;
    return result(
        session.app().profileManager().saveProfile(value, ProfileManager::folderNameFor(value, operands[1])));
}

ExitCode use(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto profile = named(session, operands.front());
    if (!profile)
        return profile.error();
    session.app().profileManager().resolveActiveProfile((**profile)->id);
    return ExitCode::done;
}

ExitCode set(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto assignments = assignmentsFrom(operands.mid(1), {QStringLiteral("id")});
    if (!assignments)
        return wrongUsage(profileSpec, assignments.error());
    const auto profile = named(session, operands.front());
    if (!profile)
        return profile.error();
    Profile changed = ***profile;
    if (const Assigned assigned = applyAll(changed, *assignments, Session::reading()); !assigned)
        return failed(assigned.error());
    return result(session.app().profileManager().saveProfile(changed, folderName(*profile)));
}

ExitCode remove(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto profile = named(session, operands.front());
    if (!profile)
        return profile.error();
    return result(session.app().profileManager().removeProfile((**profile)->id));
}

/// The profiles to be exported: the named ones, all, or the active one.
std::expected<std::vector<ProfilePtr>, ExitCode> chosen(Session& session, const QStringList& names,
                                                        const CommandArguments& arguments)
{
    const ProfileManager& profiles = session.app().profileManager();
    if (arguments.has("all"))
        return profiles.profiles();
    if (names.isEmpty())
        return std::vector{profiles.activeProfile()};
    std::vector<ProfilePtr> found;
    for (const QString& name : names) {
        const auto profile = named(session, name);
        if (!profile)
            return std::unexpected(profile.error());
        found.push_back(*profile);
    }
    return found;
}

ExitCode exportProfiles(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    if (arguments.has("all") && !operands.isEmpty())
        return wrongUsage(profileSpec, QStringLiteral("either single profiles or --all"));
    const auto profiles = chosen(session, operands, arguments);
    if (!profiles)
        return profiles.error();
    const QDate today = session.now().localDate();
    const QString name = profiles->size() == 1 && !arguments.has("all")
                             ? ProfileExporter::fileName(**profiles->front(), today)
                             : ProfileExporter::fileNameForAll(today, readerLanguage());
    const QString target = archiveTarget(arguments, name);
    const auto written = session.app().profileExporter().write(*profiles, target, overwriteFrom(arguments));
    return toldArchive(target, written, arguments);
}

ExitCode importProfiles(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const QString& path = operands.front();
    return toldImport(path, importDataFile(session.app().profileImporter(), session.console(), path),
                      arguments);
}

constexpr std::array verbs = {
    Verb{"export", 0, anyNumber, exportProfiles},
    Verb{"import", 1, 1, importProfiles},
    Verb{"list", 0, 0, list},
    Verb{"show", 0, 1, show},
    Verb{"create", 1, 1, create},
    Verb{"rename", 2, 2, rename},
    Verb{"use", 1, 1, use},
    Verb{"set", 2, anyNumber, set},
    Verb{"delete", 1, 1, remove},
};

} // namespace

ProfileCommand::ProfileCommand() : GroupCommand(profileSpec, verbs, Session::Needs::profiles) {}

} // namespace ledra
