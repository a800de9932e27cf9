#include "ui/commands/window_commands.h"

#include "ui/assistant/first_start_assistant.h"
#include "ui/commands/command_search.h"
#include "ui/commands/file_commands.h"
#include "ui/commands/help_commands.h"
#include "ui/commands/record_commands.h"
#include "ui/commands/shortcut_sheet.h"
#include "ui/list/list_panel.h"
#include "ui/list/side_bar.h"
#include "ui/main_window.h"
#include "ui/preview/preview_panel.h"
#include "ui/text/text_to_invoice.h"

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

void showShortcuts(MainWindow& window)
{
    auto* sheet = new ShortcutSheet(window.commands(), *window.menuBar(), &window); // deletes itself
    sheet->open();
}

void newInvoiceFromText(MainWindow& window)
{
    openTextToInvoice(window);
}

void toggleSideBar(MainWindow& window)
{
    window.toggleSideBar();
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

void toggleStyling(MainWindow& window)
{
    window.toggleStyling();
}

bool isStylingOpen(const MainWindow& window)
{
    return window.isStylingOpen();
}

void openSettings(MainWindow& window)
{
    window.openSettings();
}

void openViewer(MainWindow& window)
{
    window.openViewer();
}

void closeWindow(MainWindow& window)
{
    window.close();
}

template <void (*run)(MainWindow&, ExportFormat), ExportFormat format>
void exportAs(MainWindow& window)
{
    run(window, format);
}

constexpr std::array commands = {
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "New Invoice"), newInvoice, "Ctrl+N",
                  "new-invoice", Needs::nothing, toolBar},
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "New Quote"), newQuote, "Ctrl+Shift+N",
                  "new-quote", Needs::nothing, toolBar},
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "New Invoice from Text…"),
                  newInvoiceFromText, "Ctrl+Alt+N", "new-from-text"},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Duplicate"), duplicateRecord, "Ctrl+D",
                  "duplicate", Needs::oneRecord, toolBar | contextMenu},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Cancel Invoice"), cancelInvoice, "",
                  "cancel-invoice", Needs::oneInvoice, contextMenu},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Create Payment Reminder"),
                  remindOfInvoice, "", "reminder", Needs::oneInvoice, contextMenu},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Make Invoice of Quote"),
                  makeInvoiceOfQuote, "", nullptr, Needs::oneQuote, contextMenu},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Open in Separate Window"),
                  openInSeparateWindow, "Ctrl+Shift+Return", nullptr, Needs::oneRecord, contextMenu, nullptr,
                  true},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Delete"), deleteRecords,
                  "Ctrl+Backspace", "delete", Needs::someRecords, contextMenu | listKeys},
    WindowCommand{Menu::status, QT_TRANSLATE_NOOP("WindowCommands", "Draft"), setStatus<Status::draft>,
                  "Ctrl+Alt+1", "drafts", Needs::someRecords},
    WindowCommand{Menu::status, QT_TRANSLATE_NOOP("WindowCommands", "Sent"), setStatus<Status::sent>,
                  "Ctrl+Alt+2", "sent", Needs::someRecords},
    WindowCommand{Menu::status, QT_TRANSLATE_NOOP("WindowCommands", "Paid"), setStatus<Status::paid>,
                  "Ctrl+Alt+3", "paid", Needs::someRecords},
    WindowCommand{Menu::status, QT_TRANSLATE_NOOP("WindowCommands", "Cancelled"),
                  setStatus<Status::cancelled>, "Ctrl+Alt+4", "cancelled", Needs::someRecords},
    WindowCommand{Menu::importing, QT_TRANSLATE_NOOP("WindowCommands", "Import PDF…"), importPDFs, "",
                  "import"},
    WindowCommand{Menu::importing, QT_TRANSLATE_NOOP("WindowCommands", "Import E-Invoices…"), importEInvoices,
                  "", "import"},
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "Open E-Invoice Viewer…"), openViewer,
                  "Ctrl+Shift+O", "e-invoice", Needs::nothing, menuOnly, nullptr, true},
    WindowCommand{Menu::exporting, QT_TRANSLATE_NOOP("WindowCommands", "Export"), exportInDefaultFormat,
                  "Ctrl+E", "export", Needs::someRecords, toolBar},
    WindowCommand{Menu::exporting, QT_TRANSLATE_NOOP("WindowCommands", "Export as PDF…"),
                  exportAs<exportSelected, ExportFormat::pdf>, "Ctrl+Shift+E", nullptr, Needs::someRecords,
                  contextMenu},
    WindowCommand{Menu::exporting, QT_TRANSLATE_NOOP("WindowCommands", "Export as ZUGFeRD PDF…"),
                  exportAs<exportSelected, ExportFormat::zugferd>, "", nullptr, Needs::someRecords,
                  contextMenu},
    WindowCommand{Menu::exporting, QT_TRANSLATE_NOOP("WindowCommands", "Export as XRechnung…"),
                  exportAs<exportSelected, ExportFormat::xrechnung>, "", nullptr, Needs::someRecords,
                  contextMenu},
    WindowCommand{Menu::fullList, QT_TRANSLATE_NOOP("WindowCommands", "CSV…"), exportFullCsv, "", nullptr,
                  Needs::anyRecord},
    WindowCommand{Menu::fullList, QT_TRANSLATE_NOOP("WindowCommands", "PDFs…"),
                  exportAs<exportFullList, ExportFormat::pdf>, "", nullptr, Needs::anyRecord},
    WindowCommand{Menu::fullList, QT_TRANSLATE_NOOP("WindowCommands", "ZUGFeRD PDFs…"),
                  exportAs<exportFullList, ExportFormat::zugferd>, "", nullptr, Needs::anyRecord},
    WindowCommand{Menu::fullList, QT_TRANSLATE_NOOP("WindowCommands", "XRechnungs…"),
                  exportAs<exportFullList, ExportFormat::xrechnung>, "", nullptr, Needs::anyRecord},
    WindowCommand{Menu::filteredList, QT_TRANSLATE_NOOP("WindowCommands", "CSV…"), exportFilteredCsv, "",
                  nullptr, Needs::listedRecord},
    WindowCommand{Menu::filteredList, QT_TRANSLATE_NOOP("WindowCommands", "PDFs…"),
                  exportAs<exportFilteredList, ExportFormat::pdf>, "", nullptr, Needs::listedRecord},
    WindowCommand{Menu::filteredList, QT_TRANSLATE_NOOP("WindowCommands", "ZUGFeRD PDFs…"),
                  exportAs<exportFilteredList, ExportFormat::zugferd>, "", nullptr, Needs::listedRecord},
    WindowCommand{Menu::filteredList, QT_TRANSLATE_NOOP("WindowCommands", "XRechnungs…"),
                  exportAs<exportFilteredList, ExportFormat::xrechnung>, "", nullptr, Needs::listedRecord},
    WindowCommand{Menu::exportProfiles, QT_TRANSLATE_NOOP("WindowCommands", "All Profiles"), exportProfiles,
                  "", "folder"},
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "Print…"), printRecords, "Ctrl+P", "print",
                  Needs::someRecords, toolBar, nullptr, true},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Send by E-Mail…"), sendRecordByMail,
                  "Ctrl+Shift+M", "mail", Needs::oneRecord, toolBar | contextMenu, nullptr, true},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Copy as File"), copyRecordsAsFiles, "",
                  nullptr, Needs::someRecords, contextMenu},
    WindowCommand{Menu::record, QT_TRANSLATE_NOOP("WindowCommands", "Reveal in Finder"), revealRecords, "",
                  "folder", Needs::someRecords, contextMenu},
    WindowCommand{Menu::edit, QT_TRANSLATE_NOOP("WindowCommands", "Search"), inList<&ListPanel::startSearch>,
                  "Ctrl+F", "search"},
    WindowCommand{Menu::edit, QT_TRANSLATE_NOOP("WindowCommands", "Filter"),
                  inList<&ListPanel::toggleFilterBar>, "Ctrl+Shift+F", "filter"},
    WindowCommand{Menu::edit, QT_TRANSLATE_NOOP("WindowCommands", "Search Commands…"), searchCommands,
                  "Ctrl+K"},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Editor"), toggleEditor, "Ctrl+Return",
                  "edit", Needs::oneRecord, toolBar | contextMenu, isEditorOpen},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Invoice Styling…"), toggleStyling,
                  "Ctrl+Shift+Y", "styling", Needs::nothing, toolBar, isStylingOpen},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Side Bar"), toggleSideBar, "F9", nullptr,
                  Needs::nothing, menuOnly, isSideBarShown},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Search Bar"),
                  inList<&ListPanel::toggleSearchBar>, "", nullptr, Needs::nothing, menuOnly, isSearchShown},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Zoom In"),
                  inPreview<&PreviewPanel::zoomIn>, "Ctrl++", "zoom-in", Needs::nothing, menuOnly, nullptr,
                  true},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Zoom Out"),
                  inPreview<&PreviewPanel::zoomOut>, "Ctrl+-", "zoom-out"},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Actual Size"),
                  inPreview<&PreviewPanel::actualSize>, "Ctrl+0"},
    WindowCommand{Menu::view, QT_TRANSLATE_NOOP("WindowCommands", "Fit Width"),
                  inPreview<&PreviewPanel::fitWidth>, "Ctrl+9", "fit"},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Keyboard Shortcuts"), showShortcuts,
                  "F1; Ctrl+?"},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Set Up Ledra…"), openFirstStart},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Write a Message…"), writeMessage, "",
                  nullptr, Needs::nothing, menuOnly, nullptr, true},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Report Problem…"), reportProblem},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Terms of Use"), showTerms, "", nullptr,
                  Needs::nothing, menuOnly, nullptr, true},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Privacy Policy"), showPrivacy},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "Check for Updates…"), checkForUpdates, "",
                  nullptr, Needs::nothing, menuOnly, nullptr, true},
    WindowCommand{Menu::help, QT_TRANSLATE_NOOP("WindowCommands", "About"), showAbout},
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "Settings"), openSettings, "Ctrl+,",
                  "settings", Needs::nothing, menuOnly, nullptr, true},
    WindowCommand{Menu::file, QT_TRANSLATE_NOOP("WindowCommands", "Quit"), closeWindow, "Ctrl+Q", nullptr,
                  Needs::nothing, menuOnly, nullptr, true},
};

} // namespace

std::span<const WindowCommand> windowCommands()
{
    return commands;
}

} // namespace ledra
