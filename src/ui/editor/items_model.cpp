#include "ui/editor/items_model.h"

#include "app/reader_language.h"
#include "app/typed_number.h"
#include "model/amount_text.h"
#include "model/document_labels.h"
#include "model/new_invoices.h"

namespace ledra {

namespace {

constexpr std::array<const char*, ItemsModel::columns> titles = {
    QT_TRANSLATE_NOOP("ledra::ItemsModel", "Description"), QT_TRANSLATE_NOOP("ledra::ItemsModel", "Qty"),
    QT_TRANSLATE_NOOP("ledra::ItemsModel", "Unit"),        QT_TRANSLATE_NOOP("ledra::ItemsModel", "Price"),
    QT_TRANSLATE_NOOP("ledra::ItemsModel", "VAT"),         QT_TRANSLATE_NOOP("ledra::ItemsModel", "Total"),
};

/// What a number of a column is typed with.
int leastDecimals(int column)
{
    return column == ItemsModel::price ? 2 : 0;
}

} // namespace

ItemsModel::ItemsModel(RecordEditing& editing, QObject* parent)
    : QAbstractTableModel(parent), editing_(editing)
{
    connect(&editing, &RecordEditing::changed, this, &ItemsModel::follow);
    connect(&editing, &RecordEditing::recordChanged, this, &ItemsModel::reset);
    connect(&editing, &RecordEditing::lockChanged, this, &ItemsModel::reset);
}

const Invoice::Item* ItemsModel::item(int row) const
{
    return row >= 0 && row < itemCount() ? &items_[static_cast<std::size_t>(row)] : nullptr;
}

int ItemsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : itemCount() + (hasEmptyRow_ ? 1 : 0);
}

int ItemsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

Qt::ItemFlags ItemsModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const bool isEditable = index.column() != total && !editing_.isLocked();
    return isEditable ? shown | Qt::ItemIsEditable : shown;
}

QVariant ItemsModel::display(const Invoice::Item& line, int column) const
{
    const QLocale locale = editing_.locale();
    switch (column) {
    case description:
        return line.item;
    case quantity:
        return numberForTyping(line.quantity, 0, locale);
    case unit:
        return unitLabel(line.unit, line.quantity, readerLanguage());
    case price:
        return numberForTyping(line.unitPrice, 2, locale);
    case vat:
        return percentText(line.vatPercentage, readerLanguage());
    default:
        return amountText(editing_.invoice().lineNet(line), editing_.invoice().currency, readerLanguage());
    }
}

QVariant ItemsModel::typed(const Invoice::Item& line, int column) const
{
    switch (column) {
    case description:
        return line.item;
    case unit:
        return static_cast<int>(line.unit);
    case quantity:
    case price:
    case vat: {
        const double number = column == quantity ? line.quantity
                              : column == price  ? line.unitPrice
                                                 : line.vatPercentage;
        return numberForTyping(number, leastDecimals(column), editing_.locale());
    }
    default:
        return {};
    }
}

QVariant ItemsModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole) {
        const bool isText = index.column() == description || index.column() == unit;
        return QVariant((isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignTop);
    }
    const Invoice::Item* line = item(index.row());
    if (!line)
        return role == Qt::DisplayRole && index.column() == description ? tr("Add item…") : QVariant();
    if (role == Qt::DisplayRole)
        return display(*line, index.column());
    return role == Qt::EditRole ? typed(*line, index.column()) : QVariant();
}

QVariant ItemsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        if (role == Qt::DisplayRole)
            return isNewRow(section) ? QStringLiteral("+") : QString::number(section + 1);
        return role == Qt::ToolTipRole ? tr("Drag to reorder") : QVariant();
    }
    if (section < 0 || section >= columns)
        return {};
    if (role == Qt::DisplayRole)
        return section == price && grossPrices_ ? tr("Gross price")
                                                : tr(titles.at(static_cast<std::size_t>(section)));
    if (role == Qt::TextAlignmentRole)
        return QVariant((section == description || section == unit ? Qt::AlignLeft : Qt::AlignRight) |
                        Qt::AlignVCenter);
    return {};
}

Invoice::Item ItemsModel::newLine() const
{
    Invoice::Item line = newItem(editing_.profile(), editing_.parts().app.ids());
    if (!items_.empty()) // what comes next is mostly of the same kind
        line.vatPercentage = items_.back().vatPercentage;
    return line;
}

bool ItemsModel::assign(Invoice::Item& line, int column, const QVariant& value) const
{
    if (column == description) {
        line.item = value.toString();
        return true;
    }
    if (column == unit) {
        const auto picked = static_cast<Unit>(value.toInt());
        const bool hasUsualPrice =
            line.unitPrice == 0 || line.unitPrice == rateOf(line.unit, editing_.profile());
        const double rate = rateOf(picked, editing_.profile());
        if (hasUsualPrice && rate != 0)
            line.unitPrice = rate;
        line.unit = picked;
        return true;
    }
    const std::optional<double> number = numberTyped(value.toString(), editing_.locale());
    if (!number)
        return false;
    (column == quantity ? line.quantity : column == price ? line.unitPrice : line.vatPercentage) = *number;
    return true;
}

bool ItemsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || !editing_.record())
        return false;
    const bool isNew = isNewRow(index.row());
    const Invoice::Item before = isNew ? newLine() : *item(index.row());
    Invoice::Item after = before;
    if (!assign(after, index.column(), value) || after == before)
        return false;
    if (isNew) {
        append(after);
        return true;
    }
    const auto row = static_cast<std::size_t>(index.row());
    editing_.change(
        [&](Invoice& invoice) {
            if (row < invoice.items.size())
                invoice.items[row] = after;
        },
        index.column() == unit ? EditKind::single : EditKind::typing);
    return true;
}

/// Makes the empty row a line.
void ItemsModel::append(const Invoice::Item& line)
{
    begun_ = line.id;
    editing_.change([&](Invoice& invoice) { invoice.items.push_back(line); }, EditKind::single);
    begun_ = QUuid();
}

void ItemsModel::complete(int row, const Invoice::Item& earlier)
{
    Invoice::Item line = earlier;
    const Invoice::Item* present = item(row);
    line.id = present ? present->id : newLine().id;
    line.quantity = present ? present->quantity : 1;
    if (!present) {
        append(line);
        return;
    }
    editing_.change([&](Invoice& invoice) { invoice.items[static_cast<std::size_t>(row)] = line; },
                    EditKind::single);
}

void ItemsModel::move(int from, int to)
{
    if (!item(from) || from == to)
        return;
    editing_.change(
        [&](Invoice& invoice) {
            const Invoice::Item line = invoice.items[static_cast<std::size_t>(from)];
            invoice.items.erase(invoice.items.begin() + from);
            invoice.items.insert(
                invoice.items.begin() + std::min<std::ptrdiff_t>(to, std::ssize(invoice.items)), line);
        },
        EditKind::single);
}

void ItemsModel::remove(QList<int> rows)
{
    std::sort(rows.begin(), rows.end(), std::greater());
    editing_.change(
        [&](Invoice& invoice) {
            for (const int row : rows) {
                if (row >= 0 && row < std::ssize(invoice.items))
                    invoice.items.erase(invoice.items.begin() + row);
            }
        },
        EditKind::single);
}

void ItemsModel::insert(int row, std::vector<Invoice::Item> items)
{
    for (Invoice::Item& line : items)
        line.id = editing_.parts().app.ids().newId();
    editing_.change(
        [&](Invoice& invoice) {
            const auto place = std::min<std::ptrdiff_t>(row, std::ssize(invoice.items));
            invoice.items.insert(invoice.items.begin() + place, items.begin(), items.end());
        },
        EditKind::single);
}

} // namespace ledra
