#include "ui/main_window.h"

#include "render/invoice_document.h"
#include "ui/document_preview.h"
#include "ui/invoice_table_model.h"
#include "ui/side_bar.h"
#include "ui/window_commands.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>

namespace ledra {

namespace {

const QString geometryKey = QStringLiteral("MainWindow.geometry");
const QString splitterKey = QStringLiteral("MainWindow.splitter");
const QString columnsKey = QStringLiteral("MainWindow.columns");
const QString selectionKey = QStringLiteral("MainWindow.selectedInvoiceId");

} // namespace

MainWindow::MainWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts)
    : app_(app),
      fonts_(fonts),
      jobs_(app.undoableJobs()),
      model_(new InvoiceTableModel(app, this)),
      table_(new QTableView(this)),
      search_(new QLineEdit(this)),
      preview_(new DocumentPreview(engine, app.console(), this)),
      splitter_(new QSplitter(this))
{
    setObjectName(QStringLiteral("main-window"));
    setWindowTitle(QStringLiteral("Ledra"));
    setUpList();
    auto* middle = new QWidget(splitter_);
    auto* layout = new QVBoxLayout(middle);
    layout->addWidget(search_);
    layout->addWidget(table_);
    auto* splitter = static_cast<QSplitter*>(splitter_);
    splitter->addWidget(new SideBar(app, splitter));
    splitter->addWidget(middle);
    splitter->addWidget(preview_);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({190, 530, 560});
    preview_->setMinimumWidth(320);
    setCentralWidget(splitter);

    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        InvoiceFilter filter = app_.filterManager().filter();
        filter.search = text;
        app_.filterManager().setFilter(filter);
    });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::showSelected);
    connect(model_, &QAbstractItemModel::modelReset, this, [this] {
        if (app_.selectedInvoiceId)
            reveal(*app_.selectedInvoiceId);
    });
    connect(&app.stylingManager(), &StylingManager::changed, this, &MainWindow::showSelected);
    addCommands();
    restoreLook();
}

MainWindow::~MainWindow() = default;

void MainWindow::setUpList()
{
    table_->setModel(model_);
    table_->setSortingEnabled(true);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setResizeContentsPrecision(50); // rows that are looked at, of maybe thousands
    table_->horizontalHeader()->setSectionResizeMode(InvoiceTableModel::recipient, QHeaderView::Stretch);
    table_->sortByColumn(InvoiceTableModel::date, Qt::DescendingOrder);
    search_->setPlaceholderText(tr("Search"));
    search_->setClearButtonEnabled(true);
}

void MainWindow::addCommands()
{
    auto* bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    QHash<QString, QMenu*> menus;
    for (const WindowCommand& command : windowCommands()) {
        const QString title = QCoreApplication::translate("WindowCommands", command.menu);
        if (!menus.contains(title))
            menus.insert(title, menuBar()->addMenu(title));
        auto* action = new QAction(QCoreApplication::translate("WindowCommands", command.text), this);
        action->setShortcut(QKeySequence(QString::fromLatin1(command.shortcut)));
        connect(action, &QAction::triggered, this, [this, run = command.run] { run(*this); });
        menus[title]->addAction(action);
        if (command.isInToolBar)
            bar->addAction(action);
        commands_.push_back(action);
    }
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QUndoStack& stack = app_.undoStack();
    QAction* undo = stack.createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = stack.createRedoAction(this, tr("Redo"));
    redo->setShortcut(QKeySequence::Redo);
    edit->addActions({undo, redo});
    updateCommands();
}

void MainWindow::updateCommands()
{
    const auto count = table_->selectionModel()->selectedRows().size();
    std::size_t position = 0;
    for (const WindowCommand& command : windowCommands()) {
        const bool isOffered = command.needs == CommandNeeds::nothing ||
                               (command.needs == CommandNeeds::oneRecord ? count == 1 : count > 0);
        commands_[position++]->setEnabled(isOffered);
    }
}

std::vector<InvoicePtr> MainWindow::selected() const
{
    std::vector<InvoicePtr> records;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows())
        records.push_back(model_->invoice(index));
    return records;
}

void MainWindow::reveal(const QUuid& id)
{
    const QModelIndex index = model_->indexOf(id);
    if (!index.isValid())
        return;
    table_->selectRow(index.row());
    table_->scrollTo(index);
}

void MainWindow::tell(const QString& line)
{
    constexpr int seconds = 10;
    statusBar()->showMessage(line, seconds * 1000);
}

void MainWindow::showSelected()
{
    updateCommands();
    const std::vector<InvoicePtr> records = selected();
    if (records.empty()) {
        shownRecord_.reset();
        preview_->clear();
        return;
    }
    const InvoicePtr& record = records.front();
    app_.selectedInvoiceId = (*record)->id;
    shownRecord_ = record->observe([this](const Changes<Invoice>&) { showSelected(); });
    fonts_.loadFor(**app_.stylingManager().styling());
    preview_->show(std::make_shared<const InvoiceDocument>(**record, app_.documentSetting(), fonts_));
}

void MainWindow::restoreLook()
{
    UserDefaults& defaults = app_.defaults();
    if (!restoreGeometry(defaults.value(geometryKey).toByteArray()))
        resize(1280, 800);
    static_cast<QSplitter*>(splitter_)->restoreState(defaults.value(splitterKey).toByteArray());
    table_->horizontalHeader()->restoreState(defaults.value(columnsKey).toByteArray());
    const QUuid last = defaults.value(selectionKey).toUuid();
    if (model_->indexOf(last).isValid())
        reveal(last);
    else if (model_->rowCount() > 0)
        table_->selectRow(0);
}

void MainWindow::keepLook()
{
    UserDefaults& defaults = app_.defaults();
    const std::pair<QString, QVariant> values[] = {
        {geometryKey, saveGeometry()},
        {splitterKey, static_cast<QSplitter*>(splitter_)->saveState()},
        {columnsKey, table_->horizontalHeader()->saveState()},
        {selectionKey, app_.selectedInvoiceId.value_or(QUuid())}};
    for (const auto& [key, value] : values) {
        if (const auto kept = defaults.setValue(key, value); !kept)
            app_.console().failure(kept.error());
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    keepLook();
    event->accept();
}

} // namespace ledra
