#pragma once

#include "ui/commands/command_set.h"
#include "ui/window_parts.h"

#include <QMainWindow>
#include <QSplitter>

namespace ledra {

class EditorPanel;
class ListPanel;
class PreviewPanel;
class SideBar;
class WindowConsole;

/// The window that people live in: lists at the left, records in the middle, the document of the selected one
/// at the right. It joins its parts; each of them knows only the application.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts);
    ~MainWindow() override;

    const WindowParts& parts() const { return parts_; }
    UndoableJobs jobs() const { return parts_.app.undoableJobs(); }
    ListPanel& listPanel() { return *list_; }
    PreviewPanel& previewPanel() { return *preview_; }
    EditorPanel& editor() { return *editor_; }
    CommandSet& commands() { return *commands_; }
    const ListPanel& listPanel() const { return *list_; }
    SideBar& sideBar() { return *sideBar_; }
    const SideBar& sideBar() const { return *sideBar_; }

    /// The selected records, in the order of the list.
    std::vector<InvoicePtr> selected() const;

    /// Selects a record and scrolls to it; goes to the list of all records where the list in force has it
    /// not.
    void reveal(const QUuid& id);

    void updateCommands();

    void toggleEditor();
    void openEditor();
    bool isEditorOpen() const { return parts_.app.openEdit; }

    /// Shows on the console's behalf what failed.
    void follow(WindowConsole& console);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void setUpParts();
    void connectParts();
    void addCommands();
    bool isOffered(CommandNeeds needs) const;
    void showSelected();
    void showDocument(const InvoicePtr& record, bool isOther);
    void revealPending();
    void restoreLook();
    void keepLook();

    MessageBar* messages_;
    WindowParts parts_;
    QSplitter* splitter_;
    SideBar* sideBar_;
    ListPanel* list_;
    PreviewPanel* preview_;
    EditorPanel* editor_;
    CommandSet* commands_ = nullptr;
    InvoicePtr shown_;
    Observation shownRecord_; ///< of the record in the preview
};

} // namespace ledra
