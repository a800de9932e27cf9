// Undo and redo in the window: what a step brings back is chosen, so that nobody has to look for it.

#include "ui/list/list_panel.h"
#include "ui/main_window.h"
#include "ui/reminders/reminder_desk.h"

#include <QSet>
#include <QUndoStack>

namespace ledra {

namespace {

/// Those of a list that another one has not.
std::vector<InvoicePtr> added(const InvoiceList& before, const InvoiceList& after)
{
    std::vector<InvoicePtr> records;
    if (before == after)
        return records;
    QSet<const InvoiceRecord*> known;
    known.reserve(static_cast<qsizetype>(before->size()));
    for (const InvoicePtr& record : *before)
        known.insert(record.get());
    std::ranges::copy_if(*after, std::back_inserter(records),
                         [&](const InvoicePtr& record) { return !known.contains(record.get()); });
    return records;
}

} // namespace

void MainWindow::addUndoCommands()
{
    QUndoStack& stack = parts_.app.undoStack();
    QAction* undo = stack.createUndoAction(this, tr("Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = stack.createRedoAction(this, tr("Redo"));
    redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    for (const auto& [action, step] :
         {std::pair(undo, &QUndoStack::undo), std::pair(redo, &QUndoStack::redo)}) {
        disconnect(action, &QAction::triggered, &stack, nullptr); // takeStep() does it
        connect(action, &QAction::triggered, this, [this, take = step] { takeStep(take); });
    }
    connect(&stack, &QUndoStack::indexChanged, this, &MainWindow::noteStep);
    QMenu* edit = commands_->menu(Menu::edit);
    QAction* first = edit->actions().isEmpty() ? nullptr : edit->actions().constFirst();
    edit->insertActions(first, {undo, redo});
    edit->insertSeparator(first);
}

/// Remembers what a new step starts from: at this time what it makes is not chosen yet.
void MainWindow::noteStep(int index)
{
    if (index > lastStep_ && parts_.app.selectedInvoiceId)
        origins_[index - 1] = *parts_.app.selectedInvoiceId;
    lastStep_ = index;
}

/// Afterwards those records are chosen that have come back, or else, where the chosen one is gone, the one
/// that it was made of.
void MainWindow::takeStep(void (QUndoStack::*step)())
{
    QUndoStack& stack = parts_.app.undoStack();
    const InvoiceManager& invoices = parts_.app.invoiceManager();
    const InvoiceList before = invoices.list();
    const int from = stack.index();
    (stack.*step)();
    const std::vector<InvoicePtr> back = added(before, invoices.list());
    if (!back.empty()) {
        reveal((*back.front())->id);
        list_->list().choose(back);
        return;
    }
    const auto origin = origins_.find(std::min(from, stack.index()));
    if (origin != origins_.end() && !reminders_->isShown() && selected().empty() &&
        invoices.find(origin->second))
        reveal(origin->second);
}

} // namespace ledra
