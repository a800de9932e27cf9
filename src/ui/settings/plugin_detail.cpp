#include "ui/settings/plugin_detail.h"

#include "app/plugin_settings_text.h"
#include "app/reader_language.h"
#include "model/amount_text.h"
#include "ui/look/status_colors.h"
#include "ui/plugins/plugin_words.h"
#include "ui/settings/settings_window.h"

#include <QFontDatabase>

namespace ledra {

PluginDetail::PluginDetail(SettingsWindow& window) : QScrollArea(&window), window_(window)
{
    setAccessibleName(tr("Details"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto onlyThis = [this](void (PluginDetail::*refresh)()) {
        return [this, refresh](const QString& id) {
            if (id == id_ && widget())
                (this->*refresh)();
        };
    };
    connect(&plugins(), &PluginManager::stateChanged, this, onlyThis(&PluginDetail::showState));
    connect(&plugins(), &PluginManager::logged, this, onlyThis(&PluginDetail::showLog));
}

PluginManager& PluginDetail::plugins() const
{
    return window_.app().pluginManager();
}

void PluginDetail::setPlugin(const QString& id)
{
    const Plugin* plugin = plugins().find(id);
    if (!plugin || shown_ != *plugin)
        build(plugin);
    id_ = id;
    if (!plugin)
        return;
    static_cast<FieldForm*>(widget())->refresh();
    showState();
    showLog();
}

void PluginDetail::build(const Plugin* plugin)
{
    offers_ = nullptr;
    lastError_ = nullptr;
    log_ = nullptr;
    shown_ = plugin ? std::optional(*plugin) : std::nullopt;
    delete takeWidget();
    if (!plugin)
        return;
    auto* form = new FieldForm;
    form->setContentsMargins(2, 4, 12, 4);
    fill(*form, *plugin);
    setWidget(form);
}

void PluginDetail::fill(FieldForm& form, const Plugin& plugin)
{
    const PluginManifest& manifest = plugin.manifest;
    const auto text = [](const std::optional<QString>& field) { return field.value_or(QString()); };
    addText(form, tr("Description"), text(manifest.description));
    QStringList author = {text(manifest.author), text(manifest.authorUrl)};
    author.removeAll(QString());
    addText(form, tr("Author"), author.join(QStringLiteral(", ")));
    addText(form, tr("Repository"), text(manifest.url));
    offers_ = addText(form, tr("Offers"), QStringLiteral("…"));
    addText(form, tr("Files"), manifest.fileExtension ? filePattern(plugin) : QString());
    addRights(form, plugin);
    lastError_ = addText(form, tr("Last error"), QStringLiteral("…"));
    lastError_->setObjectName(QStringLiteral("plugin-last-error"));
    addSettings(form, plugin);
    addLog(form);
}

/// What is not known has no row.
QLabel* PluginDetail::addText(FieldForm& form, const QString& label, const QString& text)
{
    if (text.isEmpty())
        return nullptr;
    auto* field = new QLabel(&form);
    field->setTextFormat(Qt::PlainText); // it comes from strangers
    field->setText(text);
    field->setWordWrap(true);
    field->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    form.addField(label, field);
    return field;
}

void PluginDetail::addRights(FieldForm& form, const Plugin& plugin)
{
    QStringList texts = capabilityTexts(plugin);
    if (const QString timer = timerText(plugin); !timer.isEmpty())
        texts += timer;
    const QStringList hosts = plugin.wantedHosts();
    if (hosts.isEmpty())
        texts += tr("Does not use the network");
    addText(form, tr("What it does by itself"), texts.join(u'\n'));
    for (const QString& host : hosts)
        addHost(form, plugin, host);
}

void PluginDetail::addHost(FieldForm& form, const Plugin& plugin, const QString& host)
{
    const auto read = [this, id = plugin.id(), host] {
        const Plugin* found = plugins().find(id);
        return found && plugins().grantedHosts(*found).contains(host);
    };
    const auto write = [this, id = plugin.id(), host](const bool& isOn) {
        const Plugin* found = plugins().find(id);
        if (!found)
            return;
        QStringList hosts = plugins().grantedHosts(*found);
        hosts.removeAll(host);
        if (isOn)
            hosts += host;
        window_.tell(plugins().setGrantedHosts(id, hosts));
        static_cast<FieldForm*>(widget())->refresh(); // the switch shows what holds
    };
    form.addToggle(tr("May talk to %1").arg(withoutShortcuts(host)), {read, write});
}

void PluginDetail::addSettings(FieldForm& form, const Plugin& plugin)
{
    constexpr int lines = 3;
    auto* problem = new QLabel(&form);
    problem->setTextFormat(Qt::PlainText);
    problem->setWordWrap(true);
    problem->setForegroundRole(QPalette::PlaceholderText);
    const QString hint = tr("One KEY=VALUE in each line; the plugin’s own description says which it knows.");
    problem->setText(hint);
    const auto write = [this, id = plugin.id(), problem, hint](const QString& text) {
        const auto settings = pluginSettingsFrom(text);
        problem->setText(settings ? hint : settings.error());
        if (settings)
            window_.tell(plugins().setSettings(id, *settings));
    };
    form.addParagraph(
        tr("Settings"),
        {[this, id = plugin.id()] { return pluginSettingsText(plugins().settings(id)); }, write}, lines);
    form.addField(QString(), problem);
}

void PluginDetail::addLog(FieldForm& form)
{
    constexpr int height = 150;
    log_ = new QPlainTextEdit(&form);
    log_->setReadOnly(true);
    log_->setTabChangesFocus(true);
    log_->setFixedHeight(height);
    log_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    log_->setPlaceholderText(tr("Nothing yet since Ledra was started."));
    form.addField(tr("Log"), log_);
}

void PluginDetail::showState()
{
    const PluginRuntimeState& state = plugins().runtime(id_);
    QPalette ink;
    if (!state.lastError.isEmpty())
        ink.setColor(QPalette::WindowText, warningLook().ink());
    lastError_->setPalette(ink);
    lastError_->setText(state.lastError.isEmpty() ? tr("None") : state.lastError);
    if (!plugins().isEnabled(id_))
        offers_->setText(tr("Nothing while it is switched off"));
    else
        offers_->setText(state.isLoaded ? entryPointsText(state) : tr("Not loaded yet"));
}

void PluginDetail::showLog()
{
    const QLocale locale = documentLocale(readerLanguage());
    QStringList lines;
    for (const PluginLogLine& line : plugins().log(id_))
        lines += locale.toString(line.time.toLocal().time(), QStringLiteral("HH:mm:ss  ")) + line.text;
    log_->setPlainText(lines.join(u'\n'));
    log_->moveCursor(QTextCursor::End);
}

} // namespace ledra
