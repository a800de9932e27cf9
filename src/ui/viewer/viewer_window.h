#pragma once

#include "ui/jobs/temporary_folders.h"
#include "ui/viewer/viewer_paper.h"
#include "ui/window_parts.h"

#include <QMainWindow>
#include <QStackedWidget>
#include <QTabWidget>

namespace ledra {

class DropZone;
class ViewerTab;

/// The window in which received e-invoices are read, a tab for each. Nothing of them is kept, unless one is
/// imported.
class ViewerWindow : public QMainWindow
{
    Q_OBJECT

public:
    ViewerWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts);

    /// Opens each in a tab and shows the last one. Those that cannot be read are reported together.
    void open(const QStringList& files);

    int tabCount() const { return tabs_->count(); }
    ViewerTab* currentTab() const; ///< null without tabs

    // What the commands do, with the tab in front.
    void select(); ///< files, in a panel
    void importCurrent();
    void saveCurrent();
    void printCurrent();
    void zoomIn() { setZoom(zoom_ * zoomStep); }
    void zoomOut() { setZoom(zoom_ / zoomStep); }
    void actualSize() { setZoom(1); }
    void closeCurrent(); ///< the window where there is no tab
    void nextTab() { step(1); }
    void previousTab() { step(-1); }

Q_SIGNALS:
    void imported(const QUuid& id);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    static constexpr double zoomStep = 1.2;

    void setUpParts();
    void addCommands();
    ViewerTab* openOne(const QString& path, QStringList& failures);
    ViewerTab* tabOf(const QString& path) const;
    void closeTab(int place);
    void showState();
    void setZoom(double factor);
    void step(int direction);

    MessageBar* messages_;
    WindowParts parts_;
    TemporaryFolders folders_;
    ViewerPaper paper_;
    QStackedWidget* content_;
    DropZone* dropZone_;
    QTabWidget* tabs_;
    QList<QAction*> tabActions_; ///< which need a tab
    double zoom_ = 1;
};

} // namespace ledra
