#include "ui/main_window.h"

#include "render/invoice_document.h"
#include "ui/editor/editor_panel.h"
#include "ui/list/list_panel.h"
#include "ui/list/side_bar.h"
#include "ui/look/toast.h"
#include "ui/preview/preview_panel.h"
#include "ui/window_console.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QUndoStack>
#include <QVBoxLayout>

namespace ledra {

namespace {

const QString geometryKey = QStringLiteral("MainWindow.geometry");
const QString splitterKey = QStringLiteral("MainWindow.splitter");
const QString columnsKey = QStringLiteral("MainWindow.columns");
const QString selectionKey = QStringLiteral("MainWindow.selectedInvoiceId");
const QString editorKey = QStringLiteral("MainWindow.openEdit");
const QString zoomKey = QStringLiteral("MainWindow.zoom");

} // namespace

MainWindow::MainWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts)
    : messages_(new MessageBar),
      parts_{app, engine, fonts, *messages_, *this},
      splitter_(new QSplitter),
      sideBar_(new SideBar(app)),
      list_(new ListPanel(app)),
      preview_(new PreviewPanel(engine, app.console())),
      editor_(new EditorPanel(parts_))
{
    setObjectName(QStringLiteral("main-window"));
    setWindowTitle(QStringLiteral("Ledra"));
    setUpParts();
    addCommands();
    connectParts();
    restoreLook();
    showSelected();
}

MainWindow::~MainWindow() = default;

void MainWindow::setUpParts()
{
    splitter_->addWidget(sideBar_);
    splitter_->addWidget(list_);
    splitter_->addWidget(preview_);
    splitter_->addWidget(editor_);
    editor_->hide();
    splitter_->setHandleWidth(1);
    splitter_->setStretchFactor(2, 1);
    splitter_->setChildrenCollapsible(false);
    splitter_->setSizes({200, 520, 560, 480});
    auto* center = new QWidget;
    auto* layout = new QVBoxLayout(center);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(messages_);
    layout->addWidget(splitter_, 1);
    setCentralWidget(center);
    connect(messages_, &MessageBar::noted, new Toast(this), &Toast::say);
}

void MainWindow::connectParts()
{
    LedraApp& app = parts_.app;
    connect(&list_->list(), &InvoiceListView::chosenChanged, this, &MainWindow::showSelected);
    connect(&list_->model(), &InvoiceTableModel::reloaded, this, &MainWindow::showSelected);
    connect(&app.stylingManager(), &StylingManager::changed, this, [this] {
        shown_.reset();
        showSelected();
    });
    connect(&list_->list(), &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        commands_->contextMenu()->popup(list_->list().viewport()->mapToGlobal(place));
    });
    connect(&list_->list(), &InvoiceListView::opened, this, &MainWindow::openEditor);
    connect(editor_, &EditorPanel::closeWanted, this, &MainWindow::toggleEditor);
    connect(editor_, &EditorPanel::made, this, &MainWindow::reveal);
    connect(list_, &ListPanel::newInvoiceWanted, commands_->action("New Invoice"), &QAction::trigger);
    connect(&app, &LedraApp::revealRequested, this, &MainWindow::revealPending);
    connect(&preview_->preview(), &DocumentPreview::interrupted, this, [this] {
        messages_->warn(tr("The preview had stopped and was started again. Nothing is lost."));
    });
}

void MainWindow::addCommands()
{
    QToolBar* tools = addToolBar(tr("Tools"));
    tools->setObjectName(QStringLiteral("tools"));
    tools->setMovable(false);
    tools->setIconSize(QSize(20, 20));
    setContextMenuPolicy(Qt::NoContextMenu);
    commands_ = new CommandSet(*this, *menuBar(), *tools);
    QUndoStack& stack = parts_.app.undoStack();
    QAction* undo = stack.createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = stack.createRedoAction(this, tr("Redo"));
    redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    QMenu* edit = commands_->menu(Menu::edit);
    QAction* first = edit->actions().isEmpty() ? nullptr : edit->actions().constFirst();
    edit->insertActions(first, {undo, redo});
    edit->insertSeparator(first);
}

std::vector<InvoicePtr> MainWindow::selected() const
{
    return list_->list().selected();
}

bool MainWindow::isOffered(CommandNeeds needs) const
{
    const std::vector<InvoicePtr> records = selected();
    const bool isOne = records.size() == 1;
    const auto isOneOf = [&](InvoiceType type) { return isOne && (*records.front())->type == type; };
    switch (needs) {
    case CommandNeeds::oneRecord:
        return isOne;
    case CommandNeeds::someRecords:
        return !records.empty();
    case CommandNeeds::oneInvoice:
        return isOneOf(InvoiceType::invoice);
    case CommandNeeds::oneQuote:
        return isOneOf(InvoiceType::quote);
    case CommandNeeds::sentInvoice:
        return isOneOf(InvoiceType::invoice) && (*records.front())->status == Status::sent;
    case CommandNeeds::listedRecord:
        return list_->model().recordCount() > 0;
    case CommandNeeds::anyRecord:
        return !parts_.app.invoiceManager().invoices().empty();
    default:
        return true;
    }
}

void MainWindow::updateCommands()
{
    commands_->update([this](CommandNeeds needs) { return isOffered(needs); });
}

void MainWindow::reveal(const QUuid& id)
{
    if (!list_->model().indexOf(id).isValid())
        sideBar_->showAll();
    list_->list().reveal(id);
}

void MainWindow::revealPending()
{
    if (const std::optional<QUuid> id = std::exchange(parts_.app.pendingSpotlightInvoiceId, std::nullopt))
        reveal(*id);
}

void MainWindow::follow(WindowConsole& console)
{
    connect(&console, &WindowConsole::failed, this, [this](const QString& line) { messages_->warn(line); });
}

void MainWindow::showSelected()
{
    updateCommands();
    const std::vector<InvoicePtr> records = selected();
    if (records.size() != 1) {
        shown_.reset();
        shownRecord_.reset();
        editor_->setRecord(nullptr);
        editor_->hide();
        preview_->showHint(records.empty()
                               ? tr("No invoice selected")
                               : tr("%n invoices selected", nullptr, static_cast<int>(records.size())));
        return;
    }
    const InvoicePtr& record = records.front();
    if (record == shown_)
        return;
    shown_ = record;
    parts_.app.selectedInvoiceId = (*record)->id;
    shownRecord_ = record->observe([this](const Changes<Invoice>&) {
        updateCommands();
        showDocument(shown_, false);
    });
    editor_->setRecord(record);
    editor_->setVisible(isEditorOpen());
    showDocument(record, true);
}

void MainWindow::toggleEditor()
{
    parts_.app.openEdit = !parts_.app.openEdit;
    editor_->setVisible(isEditorOpen() && shown_);
    if (editor_->isVisible())
        editor_->start();
    updateCommands();
}

void MainWindow::openEditor()
{
    if (!isEditorOpen())
        toggleEditor();
    else
        editor_->start();
}

void MainWindow::showDocument(const InvoicePtr& record, bool isOther)
{
    LedraApp& app = parts_.app;
    parts_.fonts.loadFor(**app.stylingManager().styling());
    preview_->show(std::make_shared<const InvoiceDocument>(**record, app.documentSetting(), parts_.fonts),
                   isOther);
}

void MainWindow::restoreLook()
{
    const UserDefaults& defaults = parts_.app.defaults();
    if (!restoreGeometry(defaults.value(geometryKey).toByteArray()))
        resize(1360, 840);
    parts_.app.openEdit = defaults.value(editorKey).toBool();
    splitter_->restoreState(defaults.value(splitterKey).toByteArray());
    list_->list().horizontalHeader()->restoreState(defaults.value(columnsKey).toByteArray());
    preview_->setZoomText(defaults.value(zoomKey).toString());
    const QUuid last = defaults.value(selectionKey).toUuid();
    const QModelIndex index = list_->model().indexOf(last);
    const QModelIndex chosen = index.isValid() ? index : list_->model().firstRecord();
    if (const InvoicePtr record = list_->model().invoice(chosen))
        list_->list().reveal((*record)->id);
}

void MainWindow::keepLook()
{
    UserDefaults& defaults = parts_.app.defaults();
    const std::pair<QString, QVariant> values[] = {
        {geometryKey, saveGeometry()},
        {splitterKey, splitter_->saveState()},
        {columnsKey, list_->list().horizontalHeader()->saveState()},
        {editorKey, isEditorOpen()},
        {zoomKey, preview_->zoomText()},
        {selectionKey, parts_.app.selectedInvoiceId.value_or(QUuid())}};
    for (const auto& [key, value] : values) {
        if (const auto kept = defaults.setValue(key, value); !kept)
            parts_.app.console().failure(kept.error());
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    keepLook();
    event->accept();
}

} // namespace ledra
