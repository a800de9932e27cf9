#pragma once

#include "app/auto_export.h"
#include "ui/commands/command_set.h"
#include "ui/jobs/auto_export_reporter.h"
#include "ui/window_parts.h"

#include <QMainWindow>
#include <QSplitter>
#include <QStackedWidget>

#include <map>

class QUndoStack;

namespace ledra {

class DocumentActions;
class EditorPanel;
class ListPanel;
class PluginDesk;
class PreviewPanel;
class ReminderDesk;
class SettingsWindow;
class SideBar;
class StylingPanel;
class ViewerWindow;
class WindowConsole;
struct WindowLook;

/// The window that people live in: lists at the left, records in the middle, the document of the selected one
/// at the right and its editor beside it. It joins its parts; each of them knows only the application.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts);
    ~MainWindow() override;

    const WindowParts& parts() const { return parts_; }
    UndoableJobs jobs() const { return parts_.app.undoableJobs(); }
    CommandSet& commands() { return *commands_; }
    DocumentActions& documents() { return *documents_; }
    EditorPanel& editor() { return *editor_; }
    ListPanel& listPanel() { return *list_; }
    const ListPanel& listPanel() const { return *list_; }
    PreviewPanel& previewPanel() { return *preview_; }
    PluginDesk& plugins() { return *plugins_; }
    ReminderDesk& reminders() { return *reminders_; }
    StylingPanel& styling() { return *styling_; }
    SideBar& sideBar() { return *sideBar_; }
    const SideBar& sideBar() const { return *sideBar_; }

    /// The selected records, in the order of the list; none while reminders are shown.
    std::vector<InvoicePtr> selected() const;

    /// Selects a record and scrolls to it; goes to the list of all records where the list in force has it
    /// not.
    void reveal(const QUuid& id);

    void updateCommands();

    void toggleSideBar();
    void toggleEditor();
    void openEditor();
    bool isEditorOpen() const { return parts_.app.openEdit; }

    void toggleStyling();
    bool isStylingOpen() const;

    /// Opens the settings at a page, by its English title.
    SettingsWindow& openSettings(const QString& page = {});

    /// The same at the page of plugins, with one of them chosen.
    void openPluginSettings(const QString& plugin);
    /// Opens the window in which received e-invoices are read.
    ViewerWindow& openViewer();

    /// Shows on the console's behalf what failed.
    void follow(WindowConsole& console);

Q_SIGNALS:
    void appearanceChanged(); ///< the settings ask for another one, or another language, icon or badge

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpParts();
    void connectParts();
    void connectApplication();
    void addCommands();
    void addUndoCommands();
    void connectPlugins();
    void showProfiles();
    bool isOffered(CommandNeeds needs) const;
    void showSelected();
    void showNone(std::size_t count);
    void showDocument(const InvoicePtr& record, bool isOther);
    void revealFirst();
    void revealPending();
    WindowLook look();
    void restoreLook();
    bool maySkipWriting();
    void makeRoomForPanel();
    bool isSideBarWithoutRoom() const;
    void fitSideBar();
    void takeStep(void (QUndoStack::*step)());
    void noteStep(int index);
    void warnAboutConflict(const QStringList& values);
    void openConflicts();
    void takeDocument(const QUrl& url);
    void openHandedOver();

    MessageBar* messages_;
    WindowParts parts_;
    QSplitter* splitter_;
    QStackedWidget* middle_;
    SideBar* sideBar_;
    ListPanel* list_;
    PreviewPanel* preview_;
    EditorPanel* editor_;
    ReminderDesk* reminders_;
    PluginDesk* plugins_;
    StylingPanel* styling_;
    SettingsWindow* settings_ = nullptr;
    std::unique_ptr<ViewerWindow> viewer_; ///< a window beside this one
    QStringList handedOver_;               ///< documents that are about to be opened
    DocumentActions* documents_;
    CommandSet* commands_ = nullptr;
    AutoExportReporter reporter_;
    AutoExport autoExport_;
    int listWidth_ = 0; ///< before the editor or the styling needed room
    int sideBarWidth_ = 200;
    bool isSideBarWanted_ = true;  ///< it may have no room all the same
    std::map<int, QUuid> origins_; ///< what was chosen when a step was made, by the step's place
    int lastStep_ = 0;             ///< where the undo stack stood
    InvoicePtr shown_;
    Observation shownRecord_; ///< of the record in the preview
};

} // namespace ledra
