#pragma once

#include <QKeySequence>

#include <span>

namespace ledra {

class MainWindow;

/// What a command needs to be offered.
enum class CommandNeeds { nothing, oneRecord, someRecords };

/// One command of the window, as data: menus, tool bar and shortcuts are made from it.
struct WindowCommand
{
    const char* menu; ///< its title; the menus come in the order in which the commands name them
    const char* text;
    const char* shortcut; ///< as QKeySequence reads it; empty for none
    CommandNeeds needs;
    bool isInToolBar;
    void (*run)(MainWindow& window);
};

/// All of them, in the order of the menus. A null text separates two groups.
std::span<const WindowCommand> windowCommands();

} // namespace ledra
