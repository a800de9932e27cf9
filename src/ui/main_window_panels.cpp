// What stands at the right of the document: the editor or the styling, which have one place; the settings,
// and the plugins, which lead there.

#include "ui/editor/editor_panel.h"
#include "ui/main_window.h"
#include "ui/plugins/plugin_desk.h"
#include "ui/settings/plugins_page.h"
#include "ui/settings/settings_window.h"
#include "ui/styling/styling_panel.h"

namespace ledra {

void MainWindow::toggleEditor()
{
    parts_.app.openEdit = !parts_.app.openEdit;
    if (isEditorOpen())
        styling_->hide(); // they have one place
    editor_->setVisible(isEditorOpen() && shown_);
    makeRoomForEditor();
    if (editor_->isVisible())
        editor_->start();
    updateCommands();
}

/// While the editor is open the list is narrow, so that the document stays large.
void MainWindow::makeRoomForEditor()
{
    constexpr int narrowList = 400;
    constexpr int editorWidth = 470;
    QList<int> sizes = splitter_->sizes();
    int& list = sizes[splitter_->indexOf(middle_)];
    int& document = sizes[splitter_->indexOf(middle_) + 1];
    if (!editor_->isVisible()) {
        document += list - std::max(list, listWidth_);
        list = std::max(list, listWidth_);
    } else if (const int spare = list - narrowList; spare > 0) {
        listWidth_ = list;
        list = narrowList;
        sizes[splitter_->indexOf(editor_)] = editorWidth;
        document += spare;
    }
    splitter_->setSizes(sizes);
}

void MainWindow::toggleStyling()
{
    const bool opens = !isStylingOpen();
    if (opens && isEditorOpen())
        toggleEditor();
    styling_->setVisible(opens);
    if (opens)
        styling_->start();
    updateCommands();
}

bool MainWindow::isStylingOpen() const
{
    return !styling_->isHidden();
}

SettingsWindow& MainWindow::openSettings(const QString& page)
{
    if (!settings_) {
        settings_ = new SettingsWindow(parts_, this);
        connect(settings_, &SettingsWindow::appearanceChanged, this, &MainWindow::appearanceChanged);
    }
    settings_->openPage(page);
    settings_->show();
    settings_->raise();
    settings_->activateWindow();
    return *settings_;
}

void MainWindow::openPluginSettings(const QString& plugin)
{
    SettingsWindow& settings = openSettings(QStringLiteral("Plugins"));
    settings.findChild<PluginsPage*>()->choose(plugin);
}

void MainWindow::connectPlugins()
{
    auto* inContext = new QMenu(commands_->menu(Menu::plugins)->title(), this);
    commands_->contextMenu()->addMenu(inContext);
    plugins_->setMenus(*commands_->menu(Menu::plugins), *inContext, [this] { return selected(); });
    connect(plugins_, &PluginDesk::recordWanted, this, &MainWindow::reveal);
    connect(plugins_, &PluginDesk::settingsWanted, this, &MainWindow::openPluginSettings);
    connect(&parts_.app, &LedraApp::openPluginSettings, this, [this] { openPluginSettings({}); });
}

void MainWindow::openEditor()
{
    if (!isEditorOpen())
        toggleEditor();
    else
        editor_->start();
}

} // namespace ledra
