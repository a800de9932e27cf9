#pragma once

#include <span>

namespace ledra {

/// The menus of the window.
enum class Menu {
    file,
    importing,
    exporting,
    fullList,
    filteredList,
    exportProfiles,
    profile,
    edit,
    record,
    status,
    view,
    plugins, ///< filled with what the plugins offer, hidden while that is nothing
    help,
};

struct MenuRow
{
    Menu menu;
    const char* title;
    Menu parent; ///< itself for a menu of the menu bar
};

/// In their order; a submenu stands in its parent where its first command would.
std::span<const MenuRow> menuTable();

} // namespace ledra
