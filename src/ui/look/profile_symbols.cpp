#include "ui/look/profile_symbols.h"

#include "ui/look/icons.h"

#include <algorithm>
#include <array>

namespace ledra {

namespace {

constexpr std::array symbols = {
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Person"), "person.fill", "person"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Company"), "building.2.fill", "company"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Office"), "briefcase.fill", "office"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Workshop"), "hammer.fill", "workshop"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Studio"), "paintbrush.fill", "studio"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Camera"), "camera.fill", "camera"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Computer"), "laptopcomputer", "computer"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Book"), "book.fill", "book"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Music"), "music.note", "music"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "House"), "house.fill", "house"},
    ProfileSymbol{QT_TRANSLATE_NOOP("ProfileForms", "Star"), "star.fill", "star"},
};

} // namespace

std::span<const ProfileSymbol> profileSymbols()
{
    return symbols;
}

QIcon profileIcon(const QString& name)
{
    const auto found = std::ranges::find_if(
        symbols, [&](const ProfileSymbol& symbol) { return name == QLatin1StringView(symbol.name); });
    return lineIcon((found == symbols.end() ? symbols.front() : *found).icon);
}

} // namespace ledra
