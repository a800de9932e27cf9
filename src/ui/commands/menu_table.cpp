#include "ui/commands/menu_table.h"

#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

constexpr std::array menus = {
    MenuRow{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "&File"), Menu::file},
    MenuRow{Menu::importing, QT_TRANSLATE_NOOP("WindowCommands", "Import"), Menu::file},
    MenuRow{Menu::exporting, QT_TRANSLATE_NOOP("WindowCommands", "Export"), Menu::file},
    MenuRow{Menu::fullList, QT_TRANSLATE_NOOP("WindowCommands", "Full List"), Menu::exporting},
    MenuRow{Menu::filteredList, QT_TRANSLATE_NOOP("WindowCommands", "Filtered List"), Menu::exporting},
    MenuRow{Menu::exportProfiles, QT_TRANSLATE_NOOP("WindowCommands", "Export Profiles…"), Menu::file},
    MenuRow{Menu::profile, QT_TRANSLATE_NOOP("WindowCommands", "Profile"), Menu::file},
    MenuRow{Menu::edit, QT_TRANSLATE_NOOP("WindowCommands", "&Edit"), Menu::edit},
    MenuRow{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "&Invoice"), Menu::record},
    MenuRow{Menu::status, QT_TRANSLATE_NOOP("WindowCommands", "Status"), Menu::record},
    MenuRow{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "&View"), Menu::view},
    MenuRow{Menu::plugins, QT_TRANSLATE_NOOP("WindowCommands", "&Plugins"), Menu::plugins},
    MenuRow{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "&Help"), Menu::help},
};

} // namespace

std::span<const MenuRow> menuTable()
{
    return menus;
}

} // namespace ledra
