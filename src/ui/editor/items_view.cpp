#include "ui/editor/items_view.h"

#include "app/earlier_entries.h"
#include "ui/editor/item_cell_editors.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

namespace ledra {

namespace {

constexpr int lastTyped = ItemsModel::vat; ///< the last column that is typed in

/// Suggests lines of earlier records; they are gathered when they are first needed after the list has
/// changed.
DescriptionEdit::Suggest suggestions(LedraApp& app)
{
    struct Kept
    {
        int trigger = -1;
        std::optional<EarlierEntries> entries;
    };
    return [&app, kept = std::make_shared<Kept>()](const QString& text) {
        constexpr std::size_t most = 8;
        if (kept->trigger != app.invoiceManager().refreshTrigger()) {
            kept->entries.emplace(app.invoiceManager().invoices());
            kept->trigger = app.invoiceManager().refreshTrigger();
        }
        return kept->entries->items(text, most);
    };
}

} // namespace

ItemsView::ItemsView(RecordEditing& editing, ItemsModel& model, QWidget* parent)
    : QTableView(parent), model_(model)
{
    setModel(&model);
    setItemDelegate(new ItemDelegate(editing, model, suggestions(editing.parts().app), this));
    setAccessibleName(tr("Items"));
    setEditTriggers(AnyKeyPressed | EditKeyPressed);
    connect(this, &QTableView::clicked, this, qOverload<const QModelIndex&>(&QTableView::edit));
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectItems);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setCornerButtonEnabled(false);
    setStyleSheet(QStringLiteral("QHeaderView::section { padding: 4px; }"));
    setUpColumns();
    connect(this, &QWidget::customContextMenuRequested, this, &ItemsView::showMenu);
    connect(&model, &QAbstractItemModel::modelReset, this, &ItemsView::fitRows);
    connect(&model, &QAbstractItemModel::dataChanged, this, &ItemsView::fitRows);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &ItemsView::fitRows);
    fitRows();
}

void ItemsView::setUpColumns()
{
    QHeaderView* header = horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(ItemsModel::description, QHeaderView::Stretch);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(20);
    constexpr std::array<int, ItemsModel::columns> widths = {120, 54, 78, 72, 54, 88};
    for (int column = 0; column < ItemsModel::columns; ++column)
        setColumnWidth(column, widths.at(static_cast<std::size_t>(column)));
    verticalHeader()->setSectionsMovable(true);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(20);
    verticalHeader()->setFixedWidth(26);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    connect(verticalHeader(), &QHeaderView::sectionMoved, this,
            [this](int, int from, int to) { lineDragged(from, to); });
}

/// The header has moved the row on the screen only; the record's order is what counts.
void ItemsView::lineDragged(int from, int to)
{
    {
        const QSignalBlocker quiet(verticalHeader());
        verticalHeader()->moveSection(to, from);
    }
    model_.move(from, std::min(to, model_.itemCount() - 1));
}

void ItemsView::fitRows()
{
    resizeRowsToContents();
    setFixedHeight(sizeHint().height());
}

QSize ItemsView::sizeHint() const
{
    return {400, horizontalHeader()->sizeHint().height() + verticalHeader()->length() + 2 * frameWidth()};
}

void ItemsView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    if (event->size().width() == event->oldSize().width())
        return;
    constexpr int roomForTotal = 430;
    setColumnHidden(ItemsModel::total, viewport()->width() < roomForTotal);
    fitRows();
}

void ItemsView::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // the editor around it scrolls
}

void ItemsView::beginNewItem()
{
    const QModelIndex index = model_.index(model_.rowCount() - 1, ItemsModel::description);
    setFocus(Qt::OtherFocusReason);
    setCurrentIndex(index);
    edit(index);
}

QModelIndex ItemsView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    if (action == MoveNext && current.column() >= lastTyped && current.row() + 1 < model_.rowCount())
        return model_.index(current.row() + 1, 0);
    if (action == MovePrevious && current.column() == 0 && current.row() > 0)
        return model_.index(current.row() - 1, lastTyped);
    return QTableView::moveCursor(action, modifiers);
}

/// Enter goes to the same column of the next line; at its end the grid has an empty one to begin.
void ItemsView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QModelIndex current = currentIndex();
    QTableView::closeEditor(
        editor, hint == QAbstractItemDelegate::SubmitModelCache ? QAbstractItemDelegate::NoHint : hint);
    if (hint != QAbstractItemDelegate::SubmitModelCache || current.row() + 1 >= model_.rowCount())
        return;
    const bool begins = model_.isNewRow(current.row() + 1);
    const QModelIndex next = model_.index(current.row() + 1, begins ? 0 : current.column());
    setCurrentIndex(next);
    edit(next);
}

/// When the line that is being typed in goes, typing goes on in a new one instead of nowhere or in a
/// neighbour.
void ItemsView::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    const int row = currentIndex().row();
    QWidget* editor = row >= first && row <= last ? indexWidget(currentIndex()) : nullptr;
    if (editor)
        QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    QTableView::rowsAboutToBeRemoved(parent, first, last);
    if (!editor)
        return;
    QTimer::singleShot(0, this, [this] {
        if (model_.rowCount() > model_.itemCount())
            beginNewItem();
    });
}

QList<int> ItemsView::chosenRows() const
{
    QList<int> rows;
    const QModelIndexList chosen = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : chosen) {
        if (!rows.contains(index.row()) && model_.item(index.row()))
            rows += index.row();
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ItemsView::copy()
{
    const QList<int> rows = chosenRows();
    if (!rows.isEmpty())
        QApplication::clipboard()->setMimeData(model_.copied(rows).release()); // which owns it
}

void ItemsView::paste()
{
    const QMimeData* clipboard = QApplication::clipboard()->mimeData();
    const QList<int> rows = chosenRows();
    if (!clipboard || !model_.canPaste(*clipboard))
        return;
    const int before = model_.itemCount();
    const int place = rows.isEmpty() ? before : rows.constLast() + 1;
    model_.paste(place, *clipboard);
    // The next ones come behind these. Ctrl is held down, with which setCurrentIndex() would choose more.
    if (const int added = model_.itemCount() - before; added > 0)
        selectionModel()->setCurrentIndex(model_.index(place + added - 1, ItemsModel::description),
                                          QItemSelectionModel::ClearAndSelect);
}

void ItemsView::removeChosen()
{
    if (const QList<int> rows = chosenRows(); !rows.isEmpty())
        model_.remove(rows);
}

void ItemsView::moveChosen(int by)
{
    const QList<int> rows = chosenRows();
    const int column = currentIndex().column();
    const int to = rows.isEmpty() ? -1 : rows.constFirst() + by;
    if (rows.size() != 1 || !model_.item(to))
        return;
    model_.move(rows.constFirst(), to);
    setCurrentIndex(model_.index(to, column));
}

void ItemsView::keyPressEvent(QKeyEvent* event)
{
    const bool hasAlt = event->modifiers() == Qt::AltModifier;
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::Paste))
        paste();
    else if (event->matches(QKeySequence::Delete))
        removeChosen();
    else if (hasAlt && event->key() == Qt::Key_Up)
        moveChosen(-1);
    else if (hasAlt && event->key() == Qt::Key_Down)
        moveChosen(1);
    else
        QTableView::keyPressEvent(event);
}

void ItemsView::showMenu(const QPoint& place)
{
    if (!selectionModel()->isSelected(indexAt(place)))
        setCurrentIndex(indexAt(place));
    const QList<int> rows = chosenRows();
    const bool isEditable = !rows.isEmpty() && model_.flags(model_.index(0, 0)).testFlag(Qt::ItemIsEditable);
    const QMimeData* clipboard = QApplication::clipboard()->mimeData();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Copy Items"), this, &ItemsView::copy)->setEnabled(!rows.isEmpty());
    menu->addAction(tr("Paste Items"), this, &ItemsView::paste)
        ->setEnabled(clipboard && model_.canPaste(*clipboard));
    menu->addSeparator();
    menu->addAction(tr("Move Up"), this, [this] { moveChosen(-1); })->setEnabled(isEditable);
    menu->addAction(tr("Move Down"), this, [this] { moveChosen(1); })->setEnabled(isEditable);
    menu->addSeparator();
    menu->addAction(tr("Delete Items"), this, &ItemsView::removeChosen)->setEnabled(isEditable);
    menu->popup(viewport()->mapToGlobal(place));
}

} // namespace ledra
