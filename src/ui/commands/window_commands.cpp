#include "ui/commands/window_commands.h"

#include "ui/commands/command_search.h"
#include "ui/commands/record_commands.h"
#include "ui/list/list_panel.h"
#include "ui/list/side_bar.h"
#include "ui/main_window.h"
#include "ui/preview/preview_panel.h"

#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

using Needs = CommandNeeds;

template <Status status>
void setStatus(MainWindow& window)
{
    setStatusOfRecords(window, status);
}

template <void (PreviewPanel::*run)()>
void inPreview(MainWindow& window)
{
    (window.previewPanel().*run)();
}

template <void (ListPanel::*run)()>
void inList(MainWindow& window)
{
    (window.listPanel().*run)();
    window.updateCommands();
}

bool isSearchShown(const MainWindow& window)
{
    return window.listPanel().isSearchShown();
}

void searchCommands(MainWindow& window)
{
    auto* search = new CommandSearch(window.commands(), *window.menuBar(), &window); // deletes itself
    search->open();
}

void toggleSideBar(MainWindow& window)
{
    window.sideBar().setVisible(window.sideBar().isHidden());
    window.updateCommands();
}

bool isSideBarShown(const MainWindow& window)
{
    return !window.sideBar().isHidden();
}

void toggleEditor(MainWindow& window)
{
    window.toggleEditor();
}

bool isEditorOpen(const MainWindow& window)
{
    return window.isEditorOpen();
}

void closeWindow(MainWindow& window)
{
    window.close();
}

#define TEXT(text) QT_TRANSLATE_NOOP("WindowCommands", text)

constexpr std::array commands = {
    WindowCommand{Menu::file, TEXT("New Invoice"), newInvoice, "Ctrl+N", "new-invoice", Needs::nothing,
                  toolBar},
    WindowCommand{Menu::file, TEXT("New Quote"), newQuote, "Ctrl+Shift+N", "new-quote", Needs::nothing,
                  toolBar},
    WindowCommand{Menu::record, TEXT("Duplicate"), duplicateRecord, "Ctrl+D", "duplicate", Needs::oneRecord,
                  toolBar | contextMenu},
    WindowCommand{Menu::record, TEXT("Cancel Invoice"), cancelInvoice, "", "cancel-invoice",
                  Needs::oneInvoice, contextMenu},
    WindowCommand{Menu::record, TEXT("Make Invoice of Quote"), makeInvoiceOfQuote, "", nullptr,
                  Needs::oneQuote, contextMenu},
    WindowCommand{Menu::record, TEXT("Delete"), deleteRecords, "Ctrl+Backspace", "delete", Needs::someRecords,
                  contextMenu},
    WindowCommand{Menu::status, TEXT("Draft"), setStatus<Status::draft>, "Ctrl+Alt+1", "drafts",
                  Needs::someRecords},
    WindowCommand{Menu::status, TEXT("Sent"), setStatus<Status::sent>, "Ctrl+Alt+2", "sent",
                  Needs::someRecords},
    WindowCommand{Menu::status, TEXT("Paid"), setStatus<Status::paid>, "Ctrl+Alt+3", "paid",
                  Needs::someRecords},
    WindowCommand{Menu::status, TEXT("Cancelled"), setStatus<Status::cancelled>, "Ctrl+Alt+4", "cancelled",
                  Needs::someRecords},
    WindowCommand{Menu::edit, TEXT("Search"), inList<&ListPanel::startSearch>, "Ctrl+F", "search"},
    WindowCommand{Menu::edit, TEXT("Filter"), inList<&ListPanel::toggleFilterBar>, "Ctrl+Shift+F", "filter"},
    WindowCommand{Menu::edit, TEXT("Search Commands…"), searchCommands, "Ctrl+K"},
    WindowCommand{Menu::view, TEXT("Editor"), toggleEditor, "Ctrl+Return", "edit", Needs::oneRecord,
                  toolBar | contextMenu, isEditorOpen},
    WindowCommand{Menu::view, TEXT("Side Bar"), toggleSideBar, "F9", nullptr, Needs::nothing, menuOnly,
                  isSideBarShown},
    WindowCommand{Menu::view, TEXT("Search Bar"), inList<&ListPanel::toggleSearchBar>, "", nullptr,
                  Needs::nothing, menuOnly, isSearchShown},
    WindowCommand{Menu::view, TEXT("Zoom In"), inPreview<&PreviewPanel::zoomIn>, "Ctrl++", "zoom-in",
                  Needs::nothing, menuOnly, nullptr, true},
    WindowCommand{Menu::view, TEXT("Zoom Out"), inPreview<&PreviewPanel::zoomOut>, "Ctrl+-", "zoom-out"},
    WindowCommand{Menu::view, TEXT("Actual Size"), inPreview<&PreviewPanel::actualSize>, "Ctrl+0"},
    WindowCommand{Menu::view, TEXT("Fit Width"), inPreview<&PreviewPanel::fitWidth>, "Ctrl+9", "fit"},
    WindowCommand{Menu::file, TEXT("Quit"), closeWindow, "Ctrl+Q", nullptr, Needs::nothing, menuOnly, nullptr,
                  true},
};

#undef TEXT

} // namespace

std::span<const WindowCommand> windowCommands()
{
    return commands;
}

} // namespace ledra
