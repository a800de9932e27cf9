#include "ui/viewer/viewer_window.h"

#include "app/received_invoice.h"
#include "ui/jobs/failure_texts.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/question.h"
#include "ui/look/icons.h"
#include "ui/look/toast.h"
#include "ui/viewer/drop_zone.h"
#include "ui/viewer/viewer_commands.h"
#include "ui/viewer/viewer_tab.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

QString withoutMnemonics(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

ViewerWindow::ViewerWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts)
    : messages_(new MessageBar),
      parts_{app, engine, fonts, *messages_, *this},
      paper_(parts_, folders_),
      content_(new QStackedWidget),
      dropZone_(new DropZone),
      tabs_(new QTabWidget)
{
    setObjectName(QStringLiteral("e-invoice-viewer"));
    setAcceptDrops(true);
    constexpr QSize firstSize(960, 880);
    resize(firstSize);
    setUpParts();
    addCommands();
    showState();
}

void ViewerWindow::setUpParts()
{
    tabs_->setTabsClosable(true);
    tabs_->setMovable(true);
    tabs_->setDocumentMode(true);
    tabs_->setElideMode(Qt::ElideMiddle);
    tabs_->setUsesScrollButtons(true);
    tabs_->tabBar()->setAccessibleName(tr("Opened e-invoices"));
    content_->addWidget(dropZone_);
    content_->addWidget(tabs_);
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(messages_);
    layout->addWidget(content_, 1);
    setCentralWidget(center);
    connect(messages_, &MessageBar::noted, new Toast(this), &Toast::say);
    connect(dropZone_, &DropZone::clicked, this, &ViewerWindow::select);
    connect(tabs_, &QTabWidget::tabCloseRequested, this, &ViewerWindow::closeTab);
    connect(tabs_, &QTabWidget::currentChanged, this, &ViewerWindow::showState);
}

void ViewerWindow::addCommands()
{
    QToolBar* tools = addToolBar(tr("Tools"));
    tools->setMovable(false);
    tools->setIconSize(QSize(20, 20));
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setContextMenuPolicy(Qt::NoContextMenu);
    for (const ViewerCommand& command : viewerCommands()) {
        auto* action = new QAction(QCoreApplication::translate("Viewer", command.text), this);
        action->setShortcuts(
            QKeySequence::listFromString(QString::fromLatin1(command.shortcuts), QKeySequence::PortableText));
        if (command.icon)
            action->setIcon(lineIcon(command.icon));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(
            action->text().remove(u'…'), action->shortcut().toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, command.run);
        addAction(action);
        if (command.look != ToolBarLook::none)
            tools->addAction(action);
        if (command.look == ToolBarLook::icon)
            static_cast<QToolButton*>(tools->widgetForAction(action))
                ->setToolButtonStyle(Qt::ToolButtonIconOnly);
        if (command.needsTab)
            tabActions_ += action;
    }
}

void ViewerWindow::select()
{
    askForFiles(
        parts_,
        {tr("Select E-Invoices"), tr("E-Invoices (*.xml *.pdf);;All Files (*)"), tr("Import E-Invoices")},
        [this](const QStringList& files) { open(files); });
}

void ViewerWindow::open(const QStringList& files)
{
    QStringList failures;
    ViewerTab* last = nullptr;
    for (const QString& file : files) {
        if (ViewerTab* tab = openOne(file, failures))
            last = tab;
    }
    if (last) { // only what comes to the front is drawn
        tabs_->setCurrentWidget(last);
        showState();
        last->setFocus();
    }
    if (!failures.isEmpty())
        alert(*this, tr("The selected files could not be read as e-invoices."), failures.join(u'\n'));
}

ViewerTab* ViewerWindow::openOne(const QString& path, QStringList& failures)
{
    auto opened = openReceivedInvoice(path, ViewerXMLParser(parts_.app.clock(), parts_.app.ids()));
    const QString name = QFileInfo(path).fileName();
    if (!opened) {
        failures +=
            name + QStringLiteral(": ") +
            QCoreApplication::translate("ReceivedFile", errorText(opened.error()).toUtf8().constData());
        return nullptr;
    }
    // A file that is open already is read again in its own tab: it may have changed, and nobody looks for
    // the same invoice twice.
    ViewerTab* tab = tabOf(path);
    if (!tab) {
        tab = new ViewerTab(parts_, folders_, path); // which the tabs own
        tab->view().setZoom(zoom_);
        const int place = tabs_->addTab(tab, withoutMnemonics(opened->viewer.fileName));
        tabs_->setTabToolTip(place, path);
        for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) {
            if (QWidget* close = tabs_->tabBar()->tabButton(place, side))
                close->setAccessibleName(tr("Close %1").arg(opened->viewer.fileName));
        }
    }
    tab->show(std::move(*opened));
    return tab;
}

ViewerTab* ViewerWindow::tabOf(const QString& path) const
{
    for (int place = 0; place < tabs_->count(); ++place) {
        auto* tab = static_cast<ViewerTab*>(tabs_->widget(place));
        if (tab->path() == path)
            return tab;
    }
    return nullptr;
}

ViewerTab* ViewerWindow::currentTab() const
{
    return static_cast<ViewerTab*>(tabs_->currentWidget());
}

/// What is offered and what stands where depends on whether there is a document.
void ViewerWindow::showState()
{
    const ViewerTab* tab = currentTab();
    content_->setCurrentIndex(tab ? 1 : 0);
    for (QAction* action : std::as_const(tabActions_))
        action->setEnabled(tab);
    setWindowTitle(tab ? tr("%1 – E-Invoice Viewer").arg(QFileInfo(tab->path()).fileName())
                       : tr("E-Invoice Viewer"));
}

void ViewerWindow::closeTab(int place)
{
    QWidget* tab = tabs_->widget(place);
    tabs_->removeTab(place);
    tab->deleteLater(); // its button may have been clicked
    showState();
}

void ViewerWindow::closeCurrent()
{
    if (tabs_->count() == 0)
        close();
    else
        closeTab(tabs_->currentIndex());
}

void ViewerWindow::step(int direction)
{
    const int count = tabs_->count();
    tabs_->setCurrentIndex((tabs_->currentIndex() + direction + count) % count);
}

void ViewerWindow::setZoom(double factor)
{
    constexpr double least = 0.4;
    constexpr double most = 4;
    zoom_ = std::clamp(factor, least, most);
    for (int place = 0; place < tabs_->count(); ++place)
        static_cast<ViewerTab*>(tabs_->widget(place))->view().setZoom(zoom_);
}

/// Makes a draft of the file as it is now; what went wrong is said here, what was made is shown where the
/// records are.
void ViewerWindow::importCurrent()
{
    const JobResult<ImportedInvoice> taken = parts_.app.undoableJobs().importFile(currentTab()->path());
    if (taken)
        Q_EMIT imported((*taken->record)->id);
    else if (!taken.error().isReported)
        alert(*this, tr("Import Failed"), failureText(taken.error().text));
}

void ViewerWindow::saveCurrent()
{
    paper_.save(currentTab()->opened());
}

void ViewerWindow::printCurrent()
{
    paper_.print(currentTab()->opened());
}

void ViewerWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!event->mimeData()->hasUrls())
        return;
    dropZone_->setMarked(true);
    event->acceptProposedAction();
}

void ViewerWindow::dragLeaveEvent(QDragLeaveEvent* event)
{
    dropZone_->setMarked(false);
    QMainWindow::dragLeaveEvent(event);
}

void ViewerWindow::dropEvent(QDropEvent* event)
{
    dropZone_->setMarked(false);
    event->setDropAction(Qt::CopyAction); // the files stay where they are
    event->accept();
    QStringList files;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            files += url.toLocalFile();
        else
            messages_->warn(tr("%1 is no file of this computer.").arg(url.toDisplayString()));
    }
    open(files);
}

} // namespace ledra
