#pragma once

#include "ui/commands/menu_table.h"

#include <span>

namespace ledra {

class MainWindow;

/// What a command needs to be offered.
enum class CommandNeeds {
    nothing,
    oneRecord,
    someRecords,
    oneInvoice, ///< neither quote nor cancellation
    oneQuote,
    sentInvoice,  ///< of which can be reminded
    listedRecord, ///< at least one in the list in force
    anyRecord,    ///< at least one in the profile
};

/// Where a command stands besides its menu.
enum CommandPlace : unsigned {
    menuOnly = 0,
    toolBar = 1,
    contextMenu = 2,
    listKeys = 4, ///< its shortcut works in the list alone, since it means something else in text fields
};

/// One command of the window, as data: menus, tool bar, context menu, shortcuts and the command search are
/// made from it.
struct WindowCommand
{
    Menu menu;
    const char* text;
    void (*run)(MainWindow& window);
    const char* shortcut = ""; ///< as QKeySequence reads it, several with "; " between; empty for none
    const char* icon = nullptr;
    CommandNeeds needs = CommandNeeds::nothing;
    unsigned places = menuOnly;
    bool (*isOn)(const MainWindow& window) = nullptr; ///< for what is switched on and off
    bool beginsGroup = false;                         ///< a line stands before it
};

/// All of them, in the order of the menus.
std::span<const WindowCommand> windowCommands();

} // namespace ledra
