// What stands at the right of the document: the editor or the styling, which have one place; the settings,
// the plugins, which lead there, and the viewer of received documents.

#include "ui/console_text.h"
#include "ui/editor/editor_panel.h"
#include "ui/jobs/document_actions.h"
#include "ui/look/known_sentences.h"
#include "ui/main_window.h"
#include "ui/plugins/plugin_desk.h"
#include "ui/settings/kept_tabs.h"
#include "ui/settings/plugins_page.h"
#include "ui/settings/settings_window.h"
#include "ui/styling/styling_panel.h"
#include "ui/viewer/viewer_window.h"
#include "ui/window_console.h"

#include <QFileInfo>
#include <QTabWidget>
#include <QTimer>

namespace ledra {

void MainWindow::toggleStyling()
{
    const bool opens = !isStylingOpen();
    if (opens && isEditorOpen())
        toggleEditor();
    styling_->setVisible(opens);
    if (opens)
        styling_->start();
    fitSideBar();
    makeRoomForPanel();
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

void MainWindow::follow(WindowConsole& console)
{
    connect(&console, &WindowConsole::failed, this, [this](const QString& line) {
        constexpr auto conflict =
            "%1: changed by somebody else meanwhile; that version is kept as conflict %2";
        if (const std::optional<QStringList> values = valuesIn(line, conflict))
            warnAboutConflict(*values);
        else if (!isAlerted(line))
            messages_->warn(consoleText(line));
    });
}

/// @param values the path of a file, and the number of its conflict
void MainWindow::warnAboutConflict(const QStringList& values)
{
    const QString name = QFileInfo(values.constFirst()).fileName();
    messages_->warn(tr("“%1” was changed by somebody else meanwhile. That version is kept as conflict %2.")
                        .arg(name, values.constLast()),
                    {{tr("Show Conflicts"), [this] { openConflicts(); }}});
}

void MainWindow::openConflicts()
{
    const SettingsWindow& settings = openSettings(QStringLiteral("Data"));
    const auto* page = settings.findChild<DataPage*>();
    page->findChild<QTabWidget*>()->setCurrentWidget(page->findChild<ConflictsTab*>());
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
