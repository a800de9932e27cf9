#include "ui/main_window.h"

#include "render/invoice_document.h"
#include "ui/commands/file_commands.h"
#include "ui/editor/editor_panel.h"
#include "ui/jobs/document_actions.h"
#include "ui/jobs/file_passage.h"
#include "ui/list/list_panel.h"
#include "ui/list/side_bar.h"
#include "ui/look/toast.h"
#include "ui/plugins/plugin_desk.h"
#include "ui/preview/preview_panel.h"
#include "ui/reminders/invoice_reminders_bar.h"
#include "ui/reminders/reminder_desk.h"
#include "ui/reminders/reminder_editor.h"
#include "ui/reminders/reminder_panel.h"
#include "ui/styling/styling_panel.h"
#include "ui/text/text_to_invoice.h"
#include "ui/viewer/viewer_window.h"
#include "ui/window_look.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QUndoStack>
#include <QVBoxLayout>

namespace ledra {

MainWindow::MainWindow(LedraApp& app, QtWebEngine& engine, WebFontManager& fonts)
    : messages_(new MessageBar),
      parts_{app, engine, fonts, *messages_, *this},
      splitter_(new QSplitter),
      middle_(new QStackedWidget),
      sideBar_(new SideBar(app)),
      list_(new ListPanel(app)),
      preview_(new PreviewPanel(engine, app.console())),
      editor_(new EditorPanel(parts_)),
      reminders_(new ReminderDesk(parts_, *sideBar_, *preview_)),
      plugins_(new PluginDesk(parts_)),
      styling_(new StylingPanel(parts_)),
      documents_(new DocumentActions(parts_)),
      reporter_(*messages_),
      autoExport_(app, engine, fonts, reporter_)
{
    setObjectName(QStringLiteral("main-window"));
    setWindowTitle(QStringLiteral("Ledra"));
    setAcceptDrops(true);
    new FilePassage(this);
    setUpParts();
    addCommands();
    connectParts();
    connectApplication();
    connectPlugins();
    restoreLook();
    showSelected();
    for (QObject* part : std::initializer_list<QObject*>{splitter_, editor_, styling_})
        part->installEventFilter(this);
    fitSideBar();
    autoExport_.follow();
}

MainWindow::~MainWindow() = default;

void MainWindow::setUpParts()
{
    const auto column = [] {
        auto* layout = new QVBoxLayout;
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        return layout;
    };
    auto* document = new QWidget;
    document->setLayout(column());
    document->layout()->addWidget(&reminders_->bar());
    document->layout()->addWidget(preview_);
    middle_->addWidget(list_);
    middle_->addWidget(&reminders_->panel());
    for (QWidget* part : std::initializer_list<QWidget*>{sideBar_, middle_, document, editor_,
                                                         &reminders_->editor(), styling_})
        splitter_->addWidget(part);
    editor_->hide();
    styling_->hide();
    splitter_->setHandleWidth(1);
    splitter_->setStretchFactor(2, 1);
    splitter_->setChildrenCollapsible(false);
    splitter_->setSizes({200, 520, 560, 480, 480, 400});
    auto* center = new QWidget;
    QVBoxLayout* rows = column();
    rows->addWidget(messages_);
    rows->addWidget(&plugins_->busyBar());
    rows->addWidget(splitter_, 1); // a message takes no more than its lines
    center->setLayout(rows);
    setCentralWidget(center);
    connect(messages_, &MessageBar::noted, new Toast(this), &Toast::say);
}

void MainWindow::connectParts()
{
    InvoiceListView& list = list_->list();
    connect(&list, &InvoiceListView::chosenChanged, this, &MainWindow::showSelected);
    connect(&list, &InvoiceListView::opened, this, &MainWindow::openEditor);
    connect(&list, &QWidget::customContextMenuRequested, this, [this, &list](const QPoint& place) {
        commands_->contextMenu()->popup(list.viewport()->mapToGlobal(place));
    });
    list.setDragSource(
        [this](const std::vector<InvoicePtr>& records) { return documents_->dragData(records); });
    connect(&list_->model(), &InvoiceTableModel::reloaded, this, &MainWindow::showSelected);
    connect(list_, &ListPanel::newInvoiceWanted, commands_->action("New Invoice"), &QAction::trigger);
    connect(editor_, &EditorPanel::closeWanted, this, &MainWindow::toggleEditor);
    connect(editor_, &EditorPanel::made, this, &MainWindow::reveal);
    connect(styling_, &StylingPanel::closeWanted, this, &MainWindow::toggleStyling);
    connect(reminders_, &ReminderDesk::shownChanged, this, [this](bool isShown) {
        middle_->setCurrentIndex(isShown ? 1 : 0);
        shown_.reset();
        showSelected();
    });
    connect(reminders_, &ReminderDesk::invoiceWanted, this, &MainWindow::reveal);
    connect(&documents_->importer(), &FileImporter::imported, this, &MainWindow::reveal);
    connect(&preview_->preview(), &DocumentPreview::interrupted, this, [this] {
        messages_->warn(tr("The preview had stopped and was started again. Nothing is lost."));
    });
}

void MainWindow::connectApplication()
{
    LedraApp& app = parts_.app;
    connect(&app.stylingManager(), &StylingManager::changed, this, [this] {
        shown_.reset();
        showSelected();
    });
    connect(&app.profileManager(), &ProfileManager::activeProfileChanged, this, [this] {
        parts_.app.undoStack().clear(); // its steps belong to the other profile
        shown_.reset();
        showProfiles();
        if (selected().empty())
            revealFirst();
        showSelected();
    });
    connect(&app.profileManager(), &ProfileManager::profilesChanged, this, [this] {
        showProfiles();
        shown_.reset(); // the document may show what the profile says
        showSelected();
    });
    connect(&app, &LedraApp::revealRequested, this, &MainWindow::revealPending);
    connect(&app.appDelegate(), &AppDelegate::documentHandedOver, this, &MainWindow::takeDocument);
    for (const auto handedOver : {&AppDelegate::stylingHandedOver, &AppDelegate::profilesHandedOver})
        connect(&app.appDelegate(), handedOver, this,
                [this](const QUrl& url) { documents_->importer().importDropped({url}); });
    showProfiles();
}

void MainWindow::addCommands()
{
    QToolBar* tools = addToolBar(tr("Tools"));
    tools->setObjectName(QStringLiteral("tools"));
    tools->setMovable(false);
    tools->setIconSize(QSize(20, 20));
    setContextMenuPolicy(Qt::NoContextMenu);
    commands_ = new CommandSet(*this, *menuBar(), *tools);
    addActiveProfileExport(*this);
    addArchiveCommands(*this);
    addUndoCommands();
}

std::vector<InvoicePtr> MainWindow::selected() const
{
    return reminders_->isShown() ? std::vector<InvoicePtr>() : list_->list().selected();
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

/// Fills the menu in which the profile is switched.
void MainWindow::showProfiles()
{
    QMenu* menu = commands_->menu(Menu::profile);
    menu->clear();
    ProfileManager& profiles = parts_.app.profileManager();
    for (const ProfilePtr& profile : profiles.profiles()) {
        QAction* action = menu->addAction((*profile)->displayName(), this, [&profiles, id = (*profile)->id] {
            profiles.resolveActiveProfile(id);
        });
        action->setCheckable(true);
        action->setChecked(profile == profiles.activeProfile());
    }
}

void MainWindow::updateCommands()
{
    commands_->update([this](CommandNeeds needs) { return isOffered(needs); });
    plugins_->update();
}

void MainWindow::revealFirst()
{
    const InvoiceTableModel& model = list_->model();
    if (const InvoicePtr record = model.invoice(model.firstRecord()))
        list_->list().reveal((*record)->id);
}

void MainWindow::reveal(const QUuid& id)
{
    if (reminders_->isShown() || !list_->model().indexOf(id).isValid())
        sideBar_->showAll();
    list_->list().reveal(id);
}

void MainWindow::revealPending()
{
    if (const std::optional<QUuid> id = std::exchange(parts_.app.pendingSpotlightInvoiceId, std::nullopt))
        reveal(*id);
}

void MainWindow::showSelected()
{
    updateCommands();
    if (reminders_->isShown()) {
        shownRecord_.reset();
        editor_->setRecord(nullptr);
        editor_->hide();
        return;
    }
    const std::vector<InvoicePtr> records = selected();
    reminders_->bar().setInvoice(records.size() == 1 ? records.front() : nullptr);
    if (records.size() != 1) {
        showNone(records.size());
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

void MainWindow::showNone(std::size_t count)
{
    shown_.reset();
    shownRecord_.reset();
    editor_->setRecord(nullptr);
    editor_->hide();
    fitSideBar();
    preview_->showHint(count == 0 ? tr("No invoice selected")
                                  : tr("%n invoices selected", nullptr, static_cast<int>(count)));
}

void MainWindow::showDocument(const InvoicePtr& record, bool isOther)
{
    LedraApp& app = parts_.app;
    parts_.fonts.loadFor(**app.stylingManager().styling());
    preview_->show(std::make_shared<const InvoiceDocument>(**record, app.documentSetting(), parts_.fonts),
                   isOther);
}

WindowLook MainWindow::look()
{
    return {*this, *splitter_, *list_->list().horizontalHeader(), *preview_};
}

void MainWindow::restoreLook()
{
    const WindowLook::State state = look().restore(parts_.app.defaults());
    parts_.app.openEdit = state.isEditorOpen;
    const QModelIndex last = list_->model().indexOf(state.selectedId);
    if (const InvoicePtr record = list_->model().invoice(last))
        list_->list().reveal((*record)->id);
    else
        revealFirst();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!maySkipWriting()) {
        event->ignore();
        return;
    }
    look().keep(parts_.app.defaults(), parts_.app.console(),
                {isEditorOpen(), parts_.app.selectedInvoiceId.value_or(QUuid())});
    if (viewer_)
        viewer_->close(); // which has nothing to lose
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    const bool isOffered = event->mimeData()->hasUrls() || event->mimeData()->hasText();
    if (isOffered && !event->source()) // not what was dragged out of here
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction); // the files stay where they are
    event->accept();
    // Whoever drops documents among the records wants them there, and can take that back. To be read only,
    // they are dropped on the viewer.
    if (event->mimeData()->hasUrls())
        documents_->importer().importDropped(event->mimeData()->urls());
    else
        openTextToInvoice(*this).setText(event->mimeData()->text());
}

/// Asks before changes are lost that cannot be written.
bool MainWindow::maySkipWriting()
{
    const JobResult<void> written = parts_.app.jobs().finishWriting();
    if (written)
        return true;
    QMessageBox question(QMessageBox::Warning, tr("Close"), tr("Some changes could not be saved."),
                         QMessageBox::NoButton, this);
    question.setInformativeText(
        tr("%1\n\nThey are lost when the window is closed now.").arg(written.error().text));
    const QPushButton* lose = question.addButton(tr("Close Anyway"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    return question.clickedButton() == lose;
}

} // namespace ledra
