#include "cli/plugin_command.h"

#include "cli/json_output.h"
#include "cli/plugin_run.h"
#include "cli/text_table.h"

#include <QEventLoop>
#include <QTimer>

namespace ledra {

namespace {

constexpr std::array options = {
    OptionSpec{"allow-hosts", "", "", "install: let the plugin talk to the hosts that it lists."},
    OptionSpec{"output", "o", "FILE|FOLDER",
               "run: where an export goes; in the current folder unless said otherwise."},
    OptionSpec{"force", "", "", "run: overwrite an existing file."},
};

constexpr CommandSpec pluginSpec = {
    "plugin",
    "list | install PATH | remove ID | enable ID | disable ID | update [ID] | set ID KEY=VALUE… | "
    "run ID OPERATION [ID…|FILE]",
    "Install, update and run plugins.", options, false};

/// A plugin with what is known of it once it has been loaded.
struct Row
{
    const Plugin& plugin;
    bool isEnabled;
    QStringList grantedHosts;
    PluginRuntimeState runtime;
};

QStringList operationsOf(const PluginRuntimeState& runtime)
{
    QStringList names;
    for (const auto& [has, name] : {std::pair(runtime.hasExportInvoice, "exportInvoice"),
                                    std::pair(runtime.hasExportInvoices, "exportInvoices"),
                                    std::pair(runtime.hasImportInvoices, "importInvoices"),
                                    std::pair(runtime.hasUpdateInvoices, "updateInvoices")}) {
        if (has)
            names += QString::fromLatin1(name);
    }
    return names;
}

std::vector<QString> listed(const QStringList& texts)
{
    return {texts.begin(), texts.end()};
}

void encode(const Row& row, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", row.plugin.id());
    object.encode("name", row.plugin.manifest.name);
    object.encodeIfPresent("version", row.plugin.manifest.version);
    object.encodeIfPresent("description", row.plugin.manifest.description);
    object.encode("enabled", row.isEnabled);
    object.encode("operations", listed(operationsOf(row.runtime)));
    object.encode("wantedHosts", listed(row.plugin.wantedHosts()));
    object.encode("grantedHosts", listed(row.grantedHosts));
    object.encode("error", row.runtime.lastError);
    object.encode("folder", row.plugin.directory);
}

ExitCode list(Session& session, const QStringList&, const CommandArguments& arguments)
{
    PluginManager& manager = session.app().pluginManager();
    if (!manager.plugins().empty()) {
        QEventLoop loop;
        manager.loadRuntimes([&] { loop.quit(); });
        loop.exec();
    }
    std::vector<Row> rows;
    for (const Plugin& plugin : manager.plugins())
        rows.push_back({plugin, manager.isEnabled(plugin.id()), manager.grantedHosts(plugin),
                        manager.runtime(plugin.id())});
    if (arguments.has("json")) {
        writeJson(rows);
        return ExitCode::done;
    }
    if (rows.empty()) {
        writeOutput(QStringLiteral("No plugins installed.\nAdd a .ledraplugin folder to get started.\n"));
        return ExitCode::done;
    }
    std::vector<QStringList> cells;
    for (const Row& row : rows) {
        const QString state =
            row.isEnabled ? operationsOf(row.runtime).join(QStringLiteral(", ")) : QStringLiteral("disabled");
        cells.push_back({row.plugin.id(), row.plugin.manifest.version.value_or(QString()),
                         row.plugin.manifest.name,
                         row.runtime.lastError.isEmpty() ? state : row.runtime.lastError});
    }
    writeOutput(textTable(cells, {Align::left, Align::left, Align::left, Align::left}));
    return ExitCode::done;
}

ExitCode result(const std::expected<void, QString>& done)
{
    return done ? ExitCode::done : failed(done.error());
}

ExitCode install(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    PluginManager& manager = session.app().pluginManager();
    const HostGrant grant = arguments.has("allow-hosts") ? HostGrant::all : HostGrant::none;
    const auto plugin = manager.install(operands.front(), grant);
    if (!plugin)
        return failed(operands.front() + QStringLiteral(": ") + plugin.error());
    const QStringList hosts = plugin->wantedHosts();
    if (arguments.has("quiet"))
        return ExitCode::done;
    writeOutput(plugin->id() + u'\n');
    if (grant == HostGrant::none && !hosts.isEmpty())
        sayFailure(QStringLiteral(
                       "%1 is installed without network; it would like to talk to %2 (--allow-hosts lets it)")
                       .arg(plugin->id(), hosts.join(QStringLiteral(", "))));
    return ExitCode::done;
}

ExitCode remove(Session& session, const QStringList& operands, const CommandArguments&)
{
    return result(session.app().pluginManager().remove(operands.front()));
}

ExitCode enable(Session& session, const QStringList& operands, const CommandArguments&)
{
    return result(session.app().pluginManager().setEnabled(operands.front(), true));
}

ExitCode disable(Session& session, const QStringList& operands, const CommandArguments&)
{
    return result(session.app().pluginManager().setEnabled(operands.front(), false));
}

/// Updates one plugin and tells what came of it.
bool updateOne(PluginManager& manager, const QString& id, const CommandArguments& arguments)
{
    QEventLoop loop;
    PluginUpdater::Outcome outcome;
    manager.update(id, [&](const PluginUpdater::Outcome& answer) {
        outcome = answer;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
    });
    loop.exec();
    if (!outcome) {
        sayFailure(id + QStringLiteral(": ") + outcome.error());
        return false;
    }
    const std::optional<QString>& version = *outcome;
    const QString told = version ? QStringLiteral("updated to ") + *version : QStringLiteral("nothing newer");
    if (!arguments.has("quiet"))
        writeOutput(id + QStringLiteral(": ") + told + u'\n');
    return true;
}

ExitCode update(Session& session, const QStringList& operands, const CommandArguments& arguments)
{
    PluginManager& manager = session.app().pluginManager();
    QStringList ids = operands;
    if (ids.isEmpty()) {
        for (const Plugin& plugin : manager.plugins()) {
            if (plugin.manifest.url)
                ids += plugin.id();
        }
    }
    ExitCode code = ExitCode::done;
    for (const QString& id : ids) {
        if (!updateOne(manager, id, arguments))
            code = ExitCode::failed;
    }
    return code;
}

ExitCode set(Session& session, const QStringList& operands, const CommandArguments&)
{
    PluginManager& manager = session.app().pluginManager();
    QJsonObject settings = manager.settings(operands.front());
    for (const QString& text : operands.mid(1)) {
        const qsizetype sign = text.indexOf(u'=');
        if (sign < 1)
            return wrongUsage(pluginSpec, QStringLiteral("\"%1\" is no KEY=VALUE").arg(text));
        if (sign + 1 == text.size())
            settings.remove(text.first(sign));
        else
            settings[text.first(sign)] = text.sliced(sign + 1);
    }
    return result(manager.setSettings(operands.front(), settings));
}

constexpr std::array verbs = {Verb{"list", 0, 0, list},       Verb{"install", 1, 1, install},
                              Verb{"remove", 1, 1, remove},   Verb{"enable", 1, 1, enable},
                              Verb{"disable", 1, 1, disable}, Verb{"update", 0, 1, update},
                              Verb{"set", 2, anyNumber, set}, Verb{"run", 2, anyNumber, runPlugin}};

} // namespace

PluginCommand::PluginCommand() : GroupCommand(pluginSpec, verbs, Session::Needs::invoices) {}

} // namespace ledra
