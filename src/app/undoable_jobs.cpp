#include "app/undoable_jobs.h"

#include "app/item_changes.h"
#include "app/undo_commands.h"

namespace ledra {

namespace {

// Tells the typing in records from that in other things.
constexpr int typingId = 1;

using Presence = PresenceStep<InvoiceManager, Invoice>;

/// A change of fields, which has been made when the step is pushed.
std::unique_ptr<EditStep<Invoice>> editStep(InvoiceManager& invoices, const Invoice& before,
                                            const Invoice& after, EditKind kind,
                                            QUndoCommand* whole = nullptr)
{
    const auto apply = [&invoices](const Invoice& from, const Invoice& to, const FieldSet<Invoice>& fields) {
        if (!invoices.find(to.id))
            return;
        invoices.editSoon(to.id, [&](Invoice& invoice) {
            Invoice wanted = to;
            wanted.items = withItemChange(invoice.items, from.items, to.items);
            copyFields(wanted, invoice, fields);
        });
    };
    return std::make_unique<EditStep<Invoice>>(QT_TRANSLATE_NOOP("UndoText", "Edit"), before, after,
                                               TypingRun{.id = kind == EditKind::typing ? typingId : -1},
                                               apply, whole);
}

} // namespace

UndoStep::UndoStep(InvoiceManager& invoices, const QString& text)
    : invoices_(invoices), changes_(std::make_unique<QUndoCommand>(text))
{}

UndoStep::~UndoStep()
{
    if (changes_->childCount() > 0)
        invoices_.undoStack().push(changes_.release()); // the stack owns it
}

// The step owns the commands.

void UndoStep::made(const Invoice& record)
{
    new Presence("", invoices_, record, true, changes_.get());
}

void UndoStep::edited(const Invoice& before, const Invoice& after)
{
    if (before != after)
        (void)editStep(invoices_, before, after, EditKind::single, changes_.get()).release();
}

JobResult<void> UndoableJobs::edit(const QUuid& id, const std::function<void(Invoice&)>& change,
                                   EditKind kind, Force force)
{
    const InvoicePtr record = invoices_.find(id);
    const Invoice before = record ? **record : Invoice();
    if (const JobResult<void> edited = jobs_.editSoon(id, change, force); !edited)
        return edited;
    if (before != **record)
        invoices_.undoStack().push(
            editStep(invoices_, before, **record, kind).release()); // the stack owns it
    return {};
}

JobResult<InvoicePtr> UndoableJobs::made(JobResult<InvoicePtr> record, const char* text)
{
    if (record)
        invoices_.undoStack().push(new Presence(text, invoices_, ***record, true));
    return record;
}

JobResult<InvoicePtr> UndoableJobs::create(InvoiceType type, const InvoiceManager::Adjust& fill)
{
    return made(jobs_.create(type, fill), type == InvoiceType::quote
                                              ? QT_TRANSLATE_NOOP("UndoText", "New Quote")
                                              : QT_TRANSLATE_NOOP("UndoText", "New Invoice"));
}

JobResult<InvoicePtr> UndoableJobs::duplicate(const QUuid& id)
{
    return made(jobs_.duplicate(id), QT_TRANSLATE_NOOP("UndoText", "Duplicate"));
}

JobResult<InvoicePtr> UndoableJobs::convert(const QUuid& id)
{
    return made(jobs_.convert(id), QT_TRANSLATE_NOOP("UndoText", "Make Invoice"));
}

JobResult<ImportedInvoice> UndoableJobs::importFile(const QString& path)
{
    JobResult<ImportedInvoice> imported = jobs_.importFile(path);
    if (imported)
        (void)made(imported->record, QT_TRANSLATE_NOOP("UndoText", "Import"));
    return imported;
}

JobResult<InvoicePtr> UndoableJobs::cancel(const QUuid& id)
{
    const InvoicePtr original = invoices_.find(id);
    const Invoice before = original ? **original : Invoice();
    JobResult<InvoicePtr> cancellation = jobs_.cancel(id);
    if (!cancellation)
        return cancellation;
    QUndoStack& stack = invoices_.undoStack();
    stack.beginMacro(QCoreApplication::translate("UndoText", "Cancel Invoice"));
    if (before != **original)
        stack.push(editStep(invoices_, before, **original, EditKind::single).release());
    cancellation = made(std::move(cancellation), QT_TRANSLATE_NOOP("UndoText", "Cancel Invoice"));
    stack.endMacro();
    return cancellation;
}

JobResult<void> UndoableJobs::remove(const QUuid& id, Force force)
{
    const InvoicePtr record = invoices_.find(id);
    const Invoice before = record ? **record : Invoice();
    if (const JobResult<void> removed = jobs_.remove(id, force); !removed)
        return removed;
    invoices_.undoStack().push(
        new Presence(QT_TRANSLATE_NOOP("UndoText", "Delete"), invoices_, before, false));
    return {};
}

} // namespace ledra
