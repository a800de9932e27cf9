// How the parts of the window share its width: the list is narrow beside the editor, and the side bar gives
// way where there is no room for all.

#include "ui/editor/editor_panel.h"
#include "ui/list/side_bar.h"
#include "ui/main_window.h"
#include "ui/styling/styling_panel.h"

#include <QEvent>

namespace ledra {

namespace {

int leastWidth(const QWidget& part)
{
    return part.minimumWidth() > 0 ? part.minimumWidth() : part.minimumSizeHint().width();
}

/// That of all parts that are shown, or will be with the window, but for one.
int leastWidthWithout(const QWidget& left, const QSplitter& parts)
{
    int width = 0;
    for (int i = 0; i < parts.count(); ++i) {
        const QWidget& part = *parts.widget(i);
        const bool isPutAway = part.isHidden() && part.testAttribute(Qt::WA_WState_ExplicitShowHide);
        if (&part != &left && !isPutAway)
            width += leastWidth(part) + parts.handleWidth();
    }
    return width;
}

} // namespace

void MainWindow::toggleEditor()
{
    parts_.app.openEdit = !parts_.app.openEdit;
    if (isEditorOpen() && isStylingOpen())
        toggleStyling(); // they have one place
    editor_->setVisible(isEditorOpen() && shown_);
    fitSideBar();
    makeRoomForPanel();
    if (editor_->isVisible())
        editor_->start();
    updateCommands();
}

/// While the editor or the styling is open the list is narrow, so that the document stays large.
void MainWindow::makeRoomForPanel()
{
    constexpr int usualList = 520;
    constexpr int narrowList = 400;
    constexpr int panelWidth = 470;
    QList<int> sizes = splitter_->sizes();
    int& list = sizes[splitter_->indexOf(middle_)];
    QWidget* panel = editor_;
    if (isStylingOpen())
        panel = styling_;
    if (panel == styling_ || editor_->isVisible()) {
        const QWidget& document = *splitter_->widget(splitter_->indexOf(middle_) + 1);
        const bool isSqueezed = document.width() <= leastWidth(document); // and has been wider
        listWidth_ = isSqueezed ? std::max(list, usualList) : list;
        list = std::min(listWidth_, narrowList);
        sizes[splitter_->indexOf(panel)] = panelWidth;
    } else {
        list = std::max(list, listWidth_);
    }
    if (int& sideBar = sizes[splitter_->indexOf(sideBar_)]; sideBar == 0)
        sideBar = sideBarWidth_; // for when it comes back
    splitter_->setSizes(sizes);  // of which the document takes what is left
}

bool MainWindow::isSideBarWithoutRoom() const
{
    constexpr int roomForAll = 1240;
    const bool isPlaceTaken = isStylingOpen() || (isEditorOpen() && selected().size() == 1);
    return isPlaceTaken && splitter_->width() < roomForAll;
}

/// In a narrow window the side bar gives way to what stands at the right of the document, and comes back
/// after it. The window can be made that narrow while the side bar is still there.
void MainWindow::fitSideBar()
{
    const bool mayGo = isStylingOpen() || isEditorOpen();
    splitter_->setMinimumWidth(mayGo ? leastWidthWithout(*sideBar_, *splitter_) : 0);
    const bool isShown = isSideBarWanted_ && !isSideBarWithoutRoom();
    const bool isOther = isShown == sideBar_->isHidden();
    if (!isShown && sideBar_->isVisible())
        sideBarWidth_ = sideBar_->width();
    sideBar_->setVisible(isShown);
    if (isOther)
        updateCommands();
}

void MainWindow::toggleSideBar()
{
    isSideBarWanted_ = sideBar_->isHidden();
    if (isSideBarWanted_ && isSideBarWithoutRoom()) {
        if (isStylingOpen())
            toggleStyling();
        else
            toggleEditor();
    }
    fitSideBar();
    updateCommands();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    constexpr std::array changes = {QEvent::Resize, QEvent::ShowToParent, QEvent::HideToParent};
    if (std::ranges::find(changes, event->type()) != changes.end() &&
        (watched == splitter_) == (event->type() == QEvent::Resize))
        fitSideBar();
    return QMainWindow::eventFilter(watched, event);
}

} // namespace ledra
