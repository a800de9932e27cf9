#include "app/item_changes.h"

#include <algorithm>

namespace ledra {

namespace {

using Items = std::vector<Invoice::Item>;

template <class Range>
auto placeOf(Range& items, const Invoice::Item& item)
{
    return std::ranges::find(items, item.id, &Invoice::Item::id);
}

/// Puts in an item of another list, behind the one that it follows there.
void putIn(Items& present, const Items& others, Items::const_iterator item)
{
    auto place = present.begin();
    if (item != others.begin()) {
        place = placeOf(present, *std::prev(item));
        if (place != present.end())
            ++place;
    }
    present.insert(place, *item);
}

} // namespace

std::vector<Invoice::Item> withItemChange(Items present, const Items& from, const Items& to)
{
    if (present == from)
        return to;
    std::erase_if(present, [&](const Invoice::Item& item) {
        return placeOf(from, item) != from.end() && placeOf(to, item) == to.end();
    });
    for (auto item = to.begin(); item != to.end(); ++item) {
        const auto before = placeOf(from, *item);
        const auto now = placeOf(present, *item);
        const bool isNew = before == from.end();
        if (now == present.end() && isNew)
            putIn(present, to, item);
        else if (now != present.end() && (isNew || !(*before == *item)))
            *now = *item;
    }
    return present;
}

} // namespace ledra
