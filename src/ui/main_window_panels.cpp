// What stands at the right of the document: the editor or the styling, which have one place; the settings,
// the plugins, which lead there, and the viewer of received documents.

#include "ui/editor/editor_panel.h"
#include "ui/jobs/document_actions.h"
#include "ui/main_window.h"
#include "ui/plugins/plugin_desk.h"
#include "ui/settings/plugins_page.h"
#include "ui/settings/settings_window.h"
#include "ui/styling/styling_panel.h"
#include "ui/viewer/viewer_window.h"

#include <QTimer>

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

ViewerWindow& MainWindow::openViewer()
{
    if (!viewer_) {
        viewer_ = std::make_unique<ViewerWindow>(parts_.app, parts_.engine, parts_.fonts);
        connect(viewer_.get(), &ViewerWindow::imported, this, [this](const QUuid& id) {
            reveal(id);
            messages_->note(tr("Imported as a draft. “Undo” takes it out again."));
            raise();
            activateWindow();
        });
    }
    viewer_->show();
    viewer_->raise();
    viewer_->activateWindow();
    return *viewer_;
}

/// Files that are handed over together come one by one, and are reported on together.
void MainWindow::takeDocument(const QUrl& url)
{
    if (handedOver_.isEmpty())
        QTimer::singleShot(0, this, &MainWindow::openHandedOver);
    handedOver_ += url.isLocalFile() ? url.toLocalFile() : url.toString();
}

/// Who opens a received e-invoice in the file manager wants to read it, and not to find a draft among the own
/// invoices; importing is one step away there. A document of one's own comes back as the record that it
/// carries: as a mere picture any program shows it.
void MainWindow::openHandedOver()
{
    QStringList received;
    QList<QUrl> own;
    for (const QString& file : std::exchange(handedOver_, {})) {
        if (carriesRecord(file))
            own += QUrl::fromLocalFile(file);
        else
            received += file;
    }
    if (!own.isEmpty())
        documents_->importer().importDropped(own);
    if (!received.isEmpty())
        openViewer().open(received);
}

void MainWindow::openEditor()
{
    if (!isEditorOpen())
        toggleEditor();
    else
        editor_->start();
}

} // namespace ledra
