#include "ui/editor/items_model.h"

namespace ledra {

namespace {

bool haveSameIds(const std::vector<Invoice::Item>& a, const std::vector<Invoice::Item>& b)
{
    return std::ranges::equal(a, b, {}, &Invoice::Item::id, &Invoice::Item::id);
}

/// The place of a line, from a place on; behind the end when it is not there.
std::size_t placeOf(const QUuid& id, const std::vector<Invoice::Item>& lines, std::size_t from = 0)
{
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(std::min(from, lines.size()));
    const auto found = std::ranges::find(begin, lines.end(), id, &Invoice::Item::id);
    return static_cast<std::size_t>(found - lines.begin());
}

bool holds(const std::vector<Invoice::Item>& lines, const QUuid& id)
{
    return placeOf(id, lines) < lines.size();
}

} // namespace

/// Takes the record's lines over. Cells that are being typed in stay open as long as their line is there.
void ItemsModel::follow()
{
    grossPrices_ = editing_.record() && editing_.invoice().grossPrices;
    Q_EMIT headerDataChanged(Qt::Horizontal, price, price);
    if (!editing_.record() || hasEmptyRow_ == editing_.isLocked()) {
        reset();
        return;
    }
    rearrange(editing_.invoice().items);
    items_ = editing_.invoice().items;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
}

void ItemsModel::reset()
{
    beginResetModel();
    items_ = editing_.record() ? editing_.invoice().items : std::vector<Invoice::Item>();
    hasEmptyRow_ = editing_.record() && !editing_.isLocked();
    endResetModel();
}

/// Whether what is new is the line that is being typed in the empty row.
bool ItemsModel::isBegun(const std::vector<Invoice::Item>& now) const
{
    return now.size() == items_.size() + 1 && now.back().id == begun_ &&
           haveSameIds(items_, std::vector(now.begin(), std::prev(now.end())));
}

/// Brings the rows to the record's lines step by step.
void ItemsModel::rearrange(const std::vector<Invoice::Item>& now)
{
    if (isBegun(now)) { // what was the empty row is the new line now
        beginInsertRows({}, rowCount(), rowCount());
        items_ = now;
        endInsertRows();
        return;
    }
    for (int end = itemCount(); end > 0; --end) {
        int begin = end;
        while (begin > 0 && !holds(now, item(begin - 1)->id))
            --begin;
        removeRun(begin, end);
        end = std::max(begin, 1);
    }
    place(now);
    removeRun(static_cast<int>(now.size()), itemCount()); // lines that were there twice
}

void ItemsModel::removeRun(int begin, int end)
{
    if (begin >= end)
        return;
    beginRemoveRows({}, begin, end - 1);
    items_.erase(items_.begin() + begin, items_.begin() + end);
    endRemoveRows();
}

/// Moves the lines that stay to their places, and puts the new ones between them.
void ItemsModel::place(const std::vector<Invoice::Item>& now)
{
    for (std::size_t row = 0; row < now.size(); ++row) {
        const std::size_t from = placeOf(now[row].id, items_, row);
        const auto target = items_.begin() + static_cast<std::ptrdiff_t>(row);
        if (from == row && from < items_.size())
            continue;
        if (from < items_.size()) {
            beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {}, static_cast<int>(row));
            std::rotate(target, items_.begin() + static_cast<std::ptrdiff_t>(from),
                        items_.begin() + static_cast<std::ptrdiff_t>(from) + 1);
            endMoveRows();
            continue;
        }
        std::size_t end = row + 1;
        while (end < now.size() && placeOf(now[end].id, items_, row) == items_.size())
            ++end;
        beginInsertRows({}, static_cast<int>(row), static_cast<int>(end) - 1);
        items_.insert(target, now.begin() + static_cast<std::ptrdiff_t>(row),
                      now.begin() + static_cast<std::ptrdiff_t>(end));
        endInsertRows();
        row = end - 1;
    }
}

} // namespace ledra
