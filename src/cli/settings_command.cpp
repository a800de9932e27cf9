#include "cli/settings_command.h"

#include "cli/json_output.h"
#include "cli/text_table.h"

namespace ledra {

namespace {

constexpr CommandSpec settingsSpec = {"settings",
                                      "list | get KEY | set KEY VALUE",
                                      "List and set what holds for the whole application.",
                                      {},
                                      false};

/// All settings as one object.
struct AllSettings
{
    const Settings& settings;
};

void encode(const AllSettings& all, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    for (const SettingSpec& spec : settingSpecs()) {
        const QString text = all.settings.text(QString::fromLatin1(spec.key)).value_or(QString());
        if (text == u"true" || text == u"false")
            object.encode(spec.key, text == u"true");
        else
            object.encode(spec.key, text);
    }
}

ExitCode list(Session& session, const QStringList&, const CommandArguments& arguments)
{
    const Settings& settings = session.app().settings();
    if (arguments.has("json")) {
        writeJson(AllSettings{settings});
        return ExitCode::done;
    }
    std::vector<QStringList> cells;
    for (const SettingSpec& spec : settingSpecs()) {
        const QString key = QString::fromLatin1(spec.key);
        cells.push_back({key, settings.text(key).value_or(QString()), QString::fromUtf8(spec.help)});
    }
    writeOutput(textTable(cells, {Align::left, Align::left, Align::left}));
    return ExitCode::done;
}

ExitCode get(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto text = session.app().settings().text(operands.front());
    if (!text)
        return failed(text.error());
    writeOutput(*text + u'\n');
    return ExitCode::done;
}

ExitCode set(Session& session, const QStringList& operands, const CommandArguments&)
{
    const auto done = session.app().settings().set(operands[0], operands[1]);
    if (!done)
        return failed(done.error());
    if (operands[0] != u"invoiceDarkMode")
        return ExitCode::done;
    const auto saved = session.app().setInvoiceDarkMode(operands[1] == u"true");
    return saved ? ExitCode::done : failed(saved.error());
}

constexpr std::array verbs = {Verb{"list", 0, 0, list}, Verb{"get", 1, 1, get}, Verb{"set", 2, 2, set}};

} // namespace

SettingsCommand::SettingsCommand() : GroupCommand(settingsSpec, verbs, Session::Needs::settings) {}

} // namespace ledra
