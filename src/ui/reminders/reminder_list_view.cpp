#include "ui/reminders/reminder_list_view.h"

#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <utility>

namespace ledra {

namespace {

/// Rows are chosen as a whole, so that no cell has a frame of its own; texts stand below those of the header.
class RowDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem item = option;
        item.state.setFlag(QStyle::State_HasFocus, false);
        initStyleOption(&item, index);
        const QString text = std::exchange(item.text, QString());
        item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
        const bool isSelected = item.state.testFlag(QStyle::State_Selected);
        painter->setPen(item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        constexpr int margin = 8; // as the header has
        const QRect place = item.rect.adjusted(margin, 0, -margin, 0);
        painter->drawText(place, static_cast<int>(item.displayAlignment),
                          item.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    }
};

} // namespace

ReminderListView::ReminderListView(ReminderTableModel& model, QWidget* parent)
    : QTableView(parent), model_(model)
{
    setModel(&model);
    setItemDelegate(new RowDelegate(this));
    setAccessibleName(tr("Reminders"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setUpColumns();
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        kept_.clear();
        for (const ReminderPtr& reminder : selected())
            kept_ += (*reminder)->id;
        keptRow_ = currentIndex().row();
    });
    connect(&model, &ReminderTableModel::reloaded, this, &ReminderListView::followModel);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ReminderListView::chosenChanged);
    connect(this, &QTableView::doubleClicked, this, &ReminderListView::opened);
}

void ReminderListView::setUpColumns()
{
    constexpr int rowHeight = 34;
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsMovable(true);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setMinimumSectionSize(60);
    setSortingEnabled(true);
    sortByColumn(ReminderTableModel::date, Qt::DescendingOrder);
    header->setSectionResizeMode(ReminderTableModel::recipient, QHeaderView::Stretch);
    constexpr std::array<int, ReminderTableModel::columns> widths = {178, 96, 160, 92, 92, 108};
    for (int column = 0; column < ReminderTableModel::columns; ++column)
        setColumnWidth(column, widths.at(static_cast<std::size_t>(column)));
}

/// What was chosen is chosen again; where all of it has been deleted, what now stands in its place.
void ReminderListView::followModel()
{
    QItemSelection selection;
    QModelIndex first;
    for (const QUuid& id : std::as_const(kept_)) {
        const QModelIndex index = model_.indexOf(id);
        if (!index.isValid())
            continue;
        selection.select(index, index.siblingAtColumn(ReminderTableModel::columns - 1));
        if (!first.isValid())
            first = index;
    }
    if (first.isValid()) {
        selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    } else if (!kept_.isEmpty() && model_.rowCount() > 0) {
        selectRow(std::clamp(keptRow_, 0, model_.rowCount() - 1));
    } else {
        Q_EMIT chosenChanged(); // a reset takes the choice away without a word
    }
}

std::vector<ReminderPtr> ReminderListView::selected() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    std::vector<ReminderPtr> reminders;
    for (const QModelIndex& index : std::as_const(rows))
        reminders.push_back(model_.reminder(index));
    return reminders;
}

void ReminderListView::reveal(const QUuid& id)
{
    const QModelIndex index = model_.indexOf(id);
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void ReminderListView::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !selected().empty())
        Q_EMIT opened();
    else
        QTableView::keyPressEvent(event);
}

/// In a narrow list the days give way first: whom, what and how much remain.
void ReminderListView::resizeEvent(QResizeEvent* event)
{
    constexpr int roomForDeadline = 730;
    constexpr int roomForDate = 630;
    QTableView::resizeEvent(event);
    setColumnHidden(ReminderTableModel::deadline, viewport()->width() < roomForDeadline);
    setColumnHidden(ReminderTableModel::date, viewport()->width() < roomForDate);
}

} // namespace ledra
