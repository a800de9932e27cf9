#include "ui/window_commands.h"

#include "ui/main_window.h"

#include <QApplication>
#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

/// Shows a record that was just made.
void revealMade(MainWindow& window, const JobResult<InvoicePtr>& made)
{
    if (window.succeeded(made))
        window.reveal((**made)->id);
}

template <InvoiceType type>
void create(MainWindow& window)
{
    revealMade(window, window.jobs().create(type));
}

template <JobResult<InvoicePtr> (UndoableJobs::*make)(const QUuid&)>
void makeFromSelected(MainWindow& window)
{
    revealMade(window, (window.jobs().*make)((*window.selected().front())->id));
}

template <Status status>
void setStatus(MainWindow& window)
{
    for (const InvoicePtr& record : window.selected())
        (void)window.succeeded(window.jobs().setStatus((*record)->id, status));
}

void remove(MainWindow& window)
{
    for (const InvoicePtr& record : window.selected())
        (void)window.succeeded(window.jobs().remove((*record)->id));
}

void quit(MainWindow& window)
{
    window.close();
}

constexpr const char* file = QT_TRANSLATE_NOOP("WindowCommands", "&File");
constexpr const char* record = QT_TRANSLATE_NOOP("WindowCommands", "&Record");
constexpr const char* statusMenu = QT_TRANSLATE_NOOP("WindowCommands", "&Status");

constexpr std::array commands = {
    WindowCommand{file, QT_TRANSLATE_NOOP("WindowCommands", "New Invoice"), "Ctrl+N", CommandNeeds::nothing,
                  true, create<InvoiceType::invoice>},
    WindowCommand{file, QT_TRANSLATE_NOOP("WindowCommands", "New Quote"), "Ctrl+Shift+N",
                  CommandNeeds::nothing, true, create<InvoiceType::quote>},
    WindowCommand{file, QT_TRANSLATE_NOOP("WindowCommands", "Quit"), "Ctrl+Q", CommandNeeds::nothing, false,
                  quit},
    WindowCommand{record, QT_TRANSLATE_NOOP("WindowCommands", "Duplicate"), "Ctrl+D", CommandNeeds::oneRecord,
                  true, makeFromSelected<&UndoableJobs::duplicate>},
    WindowCommand{record, QT_TRANSLATE_NOOP("WindowCommands", "Cancel Invoice"), "", CommandNeeds::oneRecord,
                  false, makeFromSelected<&UndoableJobs::cancel>},
    WindowCommand{record, QT_TRANSLATE_NOOP("WindowCommands", "Make Invoice of Quote"), "",
                  CommandNeeds::oneRecord, false, makeFromSelected<&UndoableJobs::convert>},
    WindowCommand{record, QT_TRANSLATE_NOOP("WindowCommands", "Delete"), "Del", CommandNeeds::someRecords,
                  false, remove},
    WindowCommand{statusMenu, QT_TRANSLATE_NOOP("WindowCommands", "Draft"), "Ctrl+1",
                  CommandNeeds::someRecords, false, setStatus<Status::draft>},
    WindowCommand{statusMenu, QT_TRANSLATE_NOOP("WindowCommands", "Sent"), "Ctrl+2",
                  CommandNeeds::someRecords, false, setStatus<Status::sent>},
    WindowCommand{statusMenu, QT_TRANSLATE_NOOP("WindowCommands", "Paid"), "Ctrl+3",
                  CommandNeeds::someRecords, false, setStatus<Status::paid>},
    WindowCommand{statusMenu, QT_TRANSLATE_NOOP("WindowCommands", "Cancelled"), "Ctrl+4",
                  CommandNeeds::someRecords, false, setStatus<Status::cancelled>},
};

} // namespace

std::span<const WindowCommand> windowCommands()
{
    return commands;
}

} // namespace ledra
