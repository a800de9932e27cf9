#include "ui/list/list_panel.h"

#include "ui/list/filter_bar.h"
#include "ui/look/empty_state.h"
#include "ui/look/icons.h"

#include <QAction>
#include <QToolButton>
#include <QVBoxLayout>

namespace ledra {

ListPanel::ListPanel(LedraApp& app, QWidget* parent)
    : QWidget(parent),
      app_(app),
      model_(new InvoiceTableModel(app, this)),
      search_(new QLineEdit(this)),
      filter_(new FilterBar(app, this)),
      list_(new InvoiceListView(*model_, this)),
      empty_(new EmptyState(this)),
      stack_(new QStackedWidget(this))
{
    search_->setPlaceholderText(tr("Search number, name, e-mail, item…"));
    search_->setAccessibleName(tr("Search"));
    search_->setClearButtonEnabled(true);
    search_->addAction(lineIcon("search"), QLineEdit::LeadingPosition);
    auto* toggle = new QToolButton(this);
    toggle->setIcon(lineIcon("filter"));
    toggle->setToolTip(tr("Filter"));
    toggle->setAccessibleName(tr("Filter"));
    setTabOrder(search_, toggle);
    auto* top = new QHBoxLayout;
    top->setContentsMargins(10, 10, 6, 8);
    top->addWidget(search_);
    top->addWidget(toggle);
    stack_->addWidget(list_);
    stack_->addWidget(empty_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(filter_);
    layout->addWidget(stack_, 1);
    filter_->hide();
    setMinimumWidth(300);
    connect(toggle, &QToolButton::clicked, this, &ListPanel::toggleFilterBar);
    setUpSearch();
    setUpEmptyState();
}

/// The records are read while nobody waits, after a pause in which the list may go on changing.
void ListPanel::setUpSearch()
{
    using namespace std::chrono_literals;
    prepare_.setSingleShot(true);
    const auto prepareSoon = [this] { prepare_.start(300ms); };
    connect(&app_.invoiceManager(), &InvoiceManager::refreshed, this, prepareSoon);
    connect(&app_.invoiceManager(), &InvoiceManager::edited, this, prepareSoon);
    connect(&app_.profileManager(), &ProfileManager::profilesChanged, this, prepareSoon);
    connect(&prepare_, &QTimer::timeout, this, &ListPanel::searchWhenPrepared);
    connect(search_, &QLineEdit::textChanged, this, &ListPanel::searchWhenPrepared);
    prepareSoon();
}

/// A key stroke never waits until all records are read: the list follows when they are.
void ListPanel::searchWhenPrepared()
{
    using namespace std::chrono_literals;
    InvoiceFilter filter = app_.filterManager().filter();
    filter.search = search_->text();
    const QDeadlineTimer end(6ms);
    const bool isPrepared = app_.filterManager().prepareSearch(end) && model_->prepareRows(end);
    if (!isPrepared)
        prepare_.start(0ms);
    if (isPrepared || filter.search.trimmed().isEmpty())
        app_.filterManager().setFilter(filter);
}

void ListPanel::setUpEmptyState()
{
    connect(model_, &InvoiceTableModel::reloaded, this, &ListPanel::showListOrHint);
    connect(empty_, &EmptyState::clicked, this, [this] {
        if (app_.invoiceManager().invoices().empty())
            Q_EMIT newInvoiceWanted();
        else
            clearSearchAndFilter();
    });
    showListOrHint();
}

void ListPanel::showListOrHint()
{
    if (model_->recordCount() > 0) {
        stack_->setCurrentWidget(list_);
        return;
    }
    const InvoiceFilter& filter = app_.filterManager().filter();
    if (app_.invoiceManager().invoices().empty())
        empty_->setContent("new-invoice", tr("No invoices yet"),
                           tr("Write your first one, or drop an e-invoice or an exported PDF here."),
                           tr("New Invoice"));
    else if (!filter.search.trimmed().isEmpty() || filter.narrowing != Narrowing())
        empty_->setContent("search", tr("Nothing found"), tr("No record in this list fits the search."),
                           tr("Clear Search and Filter"));
    else
        empty_->setContent("all", tr("This list is empty"), {});
    stack_->setCurrentWidget(empty_);
}

void ListPanel::clearSearchAndFilter()
{
    search_->clear();
    filter_->reset();
}

void ListPanel::startSearch()
{
    search_->show();
    app_.showSearchBar = true;
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
}

void ListPanel::toggleSearchBar()
{
    search_->setVisible(search_->isHidden());
    app_.showSearchBar = isSearchShown();
    if (!isSearchShown())
        search_->clear();
}

void ListPanel::toggleFilterBar()
{
    filter_->setVisible(filter_->isHidden());
    if (filter_->isHidden())
        filter_->reset();
}

} // namespace ledra
