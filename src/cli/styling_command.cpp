#include "cli/styling_command.h"

#include "app/styling_checks.h"
#include "cli/archive_output.h"
#include "cli/assignments.h"
#include "cli/json_output.h"
#include "cli/text_table.h"
#include "store/styling_json.h"

#include <QFileInfo>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"output", "o", "FILE|FOLDER",
               "export: the style file; in the current folder unless said otherwise."},
    OptionSpec{"force", "", "",
               "export: overwrite an existing file. import: replace a styling of one's own."},
};

constexpr CommandSpec stylingSpec = {
    "styling", "show | set KEY=VALUE… | logo FILE | css FILE | export | import FILE",
    "Show, change and hand on the look of a profile's documents.", options, false};

ExitCode show(Session& session, const QStringList&, const CommandArguments& arguments)
{
    const Styling& styling = **session.app().stylingManager().styling();
    if (arguments.has("json")) {
        writeJson(styling);
        return ExitCode::done;
    }
    std::vector<QStringList> cells;
    for (const KeyText& pair : keyTexts(styling))
        cells.push_back({pair.key, pair.text});
    cells.push_back({QStringLiteral("logo"), styling.logo ? QStringLiteral("yes") : QStringLiteral("none")});
    cells.push_back({QStringLiteral("css"), styling.css ? QStringLiteral("yes") : QStringLiteral("none")});
    writeOutput(textTable(cells, {Align::left, Align::left}));
    return ExitCode::done;
}

ExitCode set(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto assignments = assignmentsFrom(operands, {QStringLiteral("id")});
    if (!assignments)
        return wrongUsage(stylingSpec, assignments.error());
    StylingManager& manager = session.app().stylingManager();
    Styling changed = **manager.styling();
    if (const Assigned assigned = applyAll(changed, *assignments, Session::reading()); !assigned)
        return failed(assigned.error());
    const auto done = manager.edit([&](Styling& styling) { styling = changed; });
    return done ? ExitCode::done : failed(done.error());
}

ExitCode result(const std::expected<void, StylingError>& done)
{
    return done ? ExitCode::done : failed(done.error().text);
}

ExitCode logo(Session& session, const QStringList& operands, const CommandArguments&)
{
    if (const std::optional<QString> problem = logoProblem(operands.front()))
        return failed(*problem);
    return result(session.app().stylingManager().importLogo(operands.front()));
}

ExitCode css(Session& session, const QStringList& operands, const CommandArguments&)
{
    if (const std::optional<QString> problem = styleSheetProblem(operands.front()))
        return failed(*problem);
    return result(session.app().stylingManager().importStyleSheet(operands.front()));
}

ExitCode exportStyling(Session& session, const QStringList&, const CommandArguments& arguments)
{
    const Profile& profile = session.profile();
    const QString target = archiveTarget(arguments, profile.displayName() + styleFileExtension.toString());
    return toldArchive(target,
                       session.app().stylingExporter().write(profile.id, target, overwriteFrom(arguments)),
                       arguments);
}

/// A styling is work: one that was made is replaced only with force.
ExitCode importStyling(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    const QString folder =
        session.app().profileManager().profileFolder(session.profile()).value_or(QString());
    if (!arguments.has("force") && QFileInfo::exists(folder + QStringLiteral("/styling.json")))
        return failed(QStringLiteral("the profile has a styling of its own (--force replaces it)"));
    const auto imported = session.app().stylingImporter().importFile(operands.front());
    return imported ? ExitCode::done
                    : failed(operands.front() + QStringLiteral(": ") + imported.error().text());
}

constexpr std::array verbs = {
    Verb{"show", 0, 0, show}, Verb{"set", 1, anyNumber, set},      Verb{"logo", 1, 1, logo},
    Verb{"css", 1, 1, css},   Verb{"export", 0, 0, exportStyling}, Verb{"import", 1, 1, importStyling}};

} // namespace

StylingCommand::StylingCommand() : GroupCommand(stylingSpec, verbs, Session::Needs::profiles) {}

} // namespace ledra
