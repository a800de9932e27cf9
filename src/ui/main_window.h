#pragma once

#include "app/ledra_app.h"
#include "app/undoable_jobs.h"
#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"

#include <QMainWindow>

class QLineEdit;
class QTableView;

namespace ledra {

class DocumentPreview;
class InvoiceTableModel;

/// The window that people live in: lists at the left, records in the middle, the document of the selected one
/// at the right.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts);
    ~MainWindow() override;

    DocumentPreview& preview() { return *preview_; }
    UndoableJobs& jobs() { return jobs_; }

    /// The selected records, in the order of the list.
    std::vector<InvoicePtr> selected() const;

    /// Selects a record and scrolls to it, if the list in force shows it.
    void reveal(const QUuid& id);

    /// Says what went wrong where it is seen and does not stop anybody.
    void tell(const QString& line);

    template <class T>
    bool succeeded(const JobResult<T>& result)
    {
        if (!result)
            tell(result.error().text);
        return result.has_value();
    }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void setUpList();
    void addCommands();
    void updateCommands();
    void showSelected();
    void restoreLook();
    void keepLook();

    LedraApp& app_;
    WebFontManager& fonts_;
    UndoableJobs jobs_;
    InvoiceTableModel* model_;
    QTableView* table_;
    QLineEdit* search_;
    DocumentPreview* preview_;
    QWidget* splitter_;
    std::vector<QAction*> commands_; ///< in the order of the table of commands
    Observation shownRecord_;        ///< of the record in the preview
};

} // namespace ledra
