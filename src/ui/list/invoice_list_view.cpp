#include "ui/list/invoice_list_view.h"

#include "ui/list/list_delegate.h"
#include "ui/look/icons.h"
#include "ui/look/status_colors.h"

#include <QDrag>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMimeData>

namespace ledra {

namespace {

constexpr std::array<int, InvoiceTableModel::columns> usualWidths = {100, 180, 92, 92, 96, 98};

/// What the widest state needs in the language of the window.
int widestStatus(const QFontMetrics& metrics)
{
    constexpr int aroundText = 26;
    int widest = 0;
    for (const StatusLook& look : statusLooks())
        widest = std::max(widest, metrics.horizontalAdvance(look.displayText()));
    return widest + aroundText;
}

} // namespace

InvoiceListView::InvoiceListView(InvoiceTableModel& model, QWidget* parent)
    : QTableView(parent), model_(model)
{
    setModel(&model);
    setItemDelegate(new ListDelegate(model, this));
    setAccessibleName(tr("Invoices"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    setTabKeyNavigation(false);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the recipient takes what is left
    setContextMenuPolicy(Qt::CustomContextMenu);
    setUpColumns();
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { kept_ = selected(); });
    connect(&model, &InvoiceTableModel::reloaded, this, &InvoiceListView::followModel);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &InvoiceListView::chosenChanged);
    connect(this, &QTableView::doubleClicked, this, &InvoiceListView::opened);
    followModel();
}

void InvoiceListView::setUpColumns()
{
    constexpr int rowHeight = 34;
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsMovable(true);
    header->setResizeContentsPrecision(50); // rows that are looked at, of maybe thousands
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setMinimumSectionSize(48);
    setSortingEnabled(true);
    sortByColumn(InvoiceTableModel::date, Qt::DescendingOrder);
    header->setSectionResizeMode(InvoiceTableModel::recipient, QHeaderView::Stretch);
    for (int column = 0; column < InvoiceTableModel::columns; ++column)
        setColumnWidth(column, usualWidths.at(static_cast<std::size_t>(column)));
}

/// Headings go across, and what was chosen is chosen again where it is still shown.
void InvoiceListView::followModel()
{
    clearSpans();
    for (const int row : model_.headings())
        setSpan(row, 0, 1, InvoiceTableModel::columns);
    choose(kept_);
}

void InvoiceListView::choose(const std::vector<InvoicePtr>& records)
{
    QItemSelection selection;
    QModelIndex first;
    for (const InvoicePtr& record : records) {
        const QModelIndex index = model_.indexOf(record);
        if (!index.isValid())
            continue;
        selection.select(index, index.siblingAtColumn(InvoiceTableModel::columns - 1));
        if (!first.isValid())
            first = index;
    }
    if (first.isValid()) {
        selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }
}

std::vector<InvoicePtr> InvoiceListView::selected() const
{
    std::vector<InvoicePtr> records;
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex& index : std::as_const(rows)) {
        if (InvoicePtr record = model_.invoice(index))
            records.push_back(std::move(record));
    }
    return records;
}

void InvoiceListView::reveal(const QUuid& id)
{
    const QModelIndex index = model_.indexOf(id);
    if (!index.isValid())
        return;
    // Not selectRow(), which adds to the choice while Ctrl is held, as it is for a shortcut.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void InvoiceListView::setDragSource(
    std::function<std::unique_ptr<QMimeData>(const std::vector<InvoicePtr>&)> source)
{
    dragSource_ = std::move(source);
}

void InvoiceListView::startDrag(Qt::DropActions)
{
    const std::vector<InvoicePtr> records = selected();
    if (records.empty() || !dragSource_)
        return;
    auto* drag = new QDrag(this); // which deletes itself
    drag->setMimeData(dragSource_(records).release());
    drag->setPixmap(lineIcon("new-quote").pixmap(QSize(32, 32), devicePixelRatioF()));
    drag->exec(Qt::CopyAction);
}

void InvoiceListView::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers().testFlag(Qt::ControlModifier) == false && !selected().empty())
        Q_EMIT opened();
    else
        QTableView::keyPressEvent(event);
}

void InvoiceListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

int InvoiceListView::widthWhenShown(int column) const
{
    const auto place = static_cast<std::size_t>(column);
    if (!isColumnHidden(column))
        return columnWidth(column);
    return hiddenWidths_.at(place) > 0 ? hiddenWidths_.at(place) : usualWidths.at(place);
}

/// In a narrow list the days give way first, then the number: whom, how much and how it stands remain, and
/// are never cut off.
void InvoiceListView::fitColumns()
{
    constexpr int leastRecipient = 80;
    const int status = std::max(columnWidth(InvoiceTableModel::status), widestStatus(fontMetrics()));
    setColumnWidth(InvoiceTableModel::status, status);
    int needed = leastRecipient + columnWidth(InvoiceTableModel::total) + status;
    for (const int column : {InvoiceTableModel::number, InvoiceTableModel::date, InvoiceTableModel::due}) {
        needed += widthWhenShown(column);
        const bool fits = needed <= viewport()->width();
        if (!fits && !isColumnHidden(column))
            hiddenWidths_.at(static_cast<std::size_t>(column)) = columnWidth(column);
        setColumnHidden(column, !fits);
    }
}

} // namespace ledra
