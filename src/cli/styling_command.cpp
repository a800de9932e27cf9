#include "cli/styling_command.h"

#include "cli/assignments.h"
#include "cli/json_output.h"
#include "cli/text_table.h"
#include "store/styling_json.h"

namespace ledra {

namespace {

constexpr CommandSpec stylingSpec = {"styling",
                                     "show | set KEY=VALUE… | logo FILE | css FILE",
                                     "Show and change the look of a profile's documents.",
                                     {},
                                     false};

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
    return result(session.app().stylingManager().importLogo(operands.front()));
}

ExitCode css(Session& session, const QStringList& operands, const CommandArguments&)
{
    return result(session.app().stylingManager().importStyleSheet(operands.front()));
}

constexpr std::array verbs = {Verb{"show", 0, 0, show}, Verb{"set", 1, anyNumber, set},
                              Verb{"logo", 1, 1, logo}, Verb{"css", 1, 1, css}};

} // namespace

StylingCommand::StylingCommand() : GroupCommand(stylingSpec, verbs, Session::Needs::profiles) {}

} // namespace ledra
