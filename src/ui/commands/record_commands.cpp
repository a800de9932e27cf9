#include "ui/commands/record_commands.h"

#include "ui/main_window.h"
#include "ui/record_window.h"
#include "ui/reminders/reminder_desk.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QUndoStack>

namespace ledra {

namespace {

struct RecordCommands
{
    Q_DECLARE_TR_FUNCTIONS(RecordCommands)
};

/// Shows a record that was just made.
void revealMade(MainWindow& window, const JobResult<InvoicePtr>& made)
{
    if (window.parts().succeeded(made))
        window.reveal((**made)->id);
}

QUuid selectedId(const MainWindow& window)
{
    return (*window.selected().front())->id;
}

/// Records that others hold are deleted only after a question.
bool mayDelete(MainWindow& window, const std::vector<InvoicePtr>& records)
{
    const auto guarded =
        std::ranges::count_if(records, [](const InvoicePtr& each) { return isGuarded(**each); });
    if (guarded == 0)
        return true;
    QMessageBox question(QMessageBox::Warning, RecordCommands::tr("Delete"),
                         RecordCommands::tr("Delete invoices that were sent?"), QMessageBox::NoButton,
                         &window);
    question.setInformativeText(RecordCommands::tr(
        "%n of the selected records left the house already. Others may hold them, and numbers "
        "must have no gaps. They can be taken out of the trash again.",
        nullptr, static_cast<int>(guarded)));
    const QPushButton* erase = question.addButton(RecordCommands::tr("Delete"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    question.exec();
    return question.clickedButton() == erase;
}

} // namespace

void newInvoice(MainWindow& window)
{
    revealMade(window, window.jobs().create(InvoiceType::invoice));
    window.openEditor();
}

void newQuote(MainWindow& window)
{
    revealMade(window, window.jobs().create(InvoiceType::quote));
    window.openEditor();
}

void openInSeparateWindow(MainWindow& window)
{
    const WindowParts& parts = window.parts();
    auto* separate = new RecordWindow(parts.app, parts.engine, parts.fonts, window.selected().front());
    QObject::connect(&window, &QObject::destroyed, separate, &QObject::deleteLater);
    separate->setAttribute(Qt::WA_DeleteOnClose);
    separate->show();
}

void duplicateRecord(MainWindow& window)
{
    revealMade(window, window.jobs().duplicate(selectedId(window)));
}

void cancelInvoice(MainWindow& window)
{
    revealMade(window, window.jobs().cancel(selectedId(window)));
}

void makeInvoiceOfQuote(MainWindow& window)
{
    revealMade(window, window.jobs().convert(selectedId(window)));
}

void remindOfInvoice(MainWindow& window)
{
    window.reminders().remind(selectedId(window));
}

void deleteRecords(MainWindow& window)
{
    const std::vector<InvoicePtr> records = window.selected();
    if (!mayDelete(window, records))
        return;
    QUndoStack& stack = window.parts().app.undoStack();
    if (records.size() > 1)
        stack.beginMacro(RecordCommands::tr("Delete"));
    for (const InvoicePtr& record : records)
        (void)window.parts().succeeded(window.jobs().remove((*record)->id, Force::yes));
    if (records.size() > 1)
        stack.endMacro();
}

void setStatusOfRecords(MainWindow& window, Status status)
{
    const std::vector<InvoicePtr> records = window.selected();
    QUndoStack& stack = window.parts().app.undoStack();
    if (records.size() > 1)
        stack.beginMacro(RecordCommands::tr("Status"));
    for (const InvoicePtr& record : records)
        (void)window.parts().succeeded(window.jobs().setStatus((*record)->id, status));
    if (records.size() > 1)
        stack.endMacro();
}

} // namespace ledra
