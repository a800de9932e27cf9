#include "ui/record_window.h"

#include "model/displayed_number.h"
#include "render/invoice_document.h"
#include "ui/editor/editor_panel.h"
#include "ui/look/icons.h"
#include "ui/look/toast.h"
#include "ui/preview/preview_panel.h"

#include <QSplitter>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>

namespace ledra {

RecordWindow::RecordWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts, InvoicePtr record)
    : messages_(new MessageBar),
      parts_{app, engine, fonts, *messages_, *this},
      record_(std::move(record)),
      preview_(new PreviewPanel(engine, app.console())),
      editor_(new EditorPanel(parts_))
{
    auto* splitter = new QSplitter;
    splitter->addWidget(preview_);
    splitter->addWidget(editor_);
    splitter->setHandleWidth(1);
    splitter->setStretchFactor(0, 1);
    splitter->setChildrenCollapsible(false);
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(messages_);
    layout->addWidget(splitter, 1);
    setCentralWidget(center);
    resize(1080, 800);
    addCommands();
    editor_->setRecord(record_);
    connect(messages_, &MessageBar::noted, new Toast(this), &Toast::say);
    connect(editor_, &EditorPanel::closeWanted, editor_, &QWidget::hide);
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, this, &RecordWindow::closeIfGone);
    connect(&app.profileManager(), &ProfileManager::activeProfileChanged, this, &QWidget::close);
    connect(&app.stylingManager(), &StylingManager::changed, this, [this] { showRecord(false); });
    observation_ = record_->observe([this](const Changes<Invoice>&) { showRecord(false); });
    showRecord(true);
}

void RecordWindow::addCommands()
{
    QToolBar* tools = addToolBar(tr("Tools"));
    tools->setMovable(false);
    tools->setIconSize(QSize(20, 20));
    setContextMenuPolicy(Qt::NoContextMenu);
    QUndoStack& stack = parts_.app.undoStack();
    QAction* undo = stack.createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence::Undo);
    undo->setIcon(lineIcon("undo"));
    QAction* redo = stack.createRedoAction(this, tr("Redo"));
    redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    redo->setIcon(lineIcon("redo"));
    QAction* edit = new QAction(lineIcon("edit"), tr("Editor"), this);
    edit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Return")));
    connect(edit, &QAction::triggered, editor_, [this] { editor_->setVisible(editor_->isHidden()); });
    QAction* close = new QAction(lineIcon("close"), tr("Close"), this);
    close->setShortcut(QKeySequence::Close);
    connect(close, &QAction::triggered, this, &QWidget::close);
    tools->addActions({undo, redo, edit});
    addAction(close);
}

void RecordWindow::showRecord(bool isOther)
{
    LedraApp& app = parts_.app;
    setWindowTitle(displayedNumber(**record_, **app.profileManager().activeProfile()));
    parts_.fonts.loadFor(**app.stylingManager().styling());
    preview_->show(std::make_shared<const InvoiceDocument>(**record_, app.documentSetting(), parts_.fonts),
                   isOther);
}

void RecordWindow::closeIfGone()
{
    if (!parts_.app.invoiceManager().find((*record_)->id))
        close();
}

} // namespace ledra
