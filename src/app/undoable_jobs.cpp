#include "app/undoable_jobs.h"

#include "model/field_changes.h"

#include <QCoreApplication>
#include <QUndoCommand>

namespace ledra {

namespace {

/// A change of fields, which has been made when the command is pushed.
class EditCommand final : public QUndoCommand
{
public:
    EditCommand(InvoiceManager& invoices, Invoice before, Invoice after, EditKind kind,
                QUndoCommand* step = nullptr)
        : QUndoCommand(step),
          invoices_(invoices),
          before_(std::move(before)),
          after_(std::move(after)),
          fields_(changedFields(before_, after_)),
          kind_(kind)
    {
        setText(QCoreApplication::translate("UndoText", "Edit"));
    }

    void undo() override { apply(before_); }
    void redo() override
    {
        if (std::exchange(isMade_, false))
            return;
        apply(after_);
    }

    int id() const override { return kind_ == EditKind::typing ? 1 : -1; }

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next = static_cast<const EditCommand*>(other); // of the same id(), so of the same class
        if (next->before_.id != before_.id || next->fields_ != fields_)
            return false;
        after_ = next->after_;
        fields_ = changedFields(before_, after_);
        setObsolete(fields_.none());
        return true;
    }

private:
    void apply(const Invoice& state) const
    {
        if (invoices_.find(state.id))
            invoices_.editSoon(state.id, [&](Invoice& invoice) { copyFields(state, invoice, fields_); });
    }

    InvoiceManager& invoices_;
    Invoice before_;
    Invoice after_;
    FieldSet<Invoice> fields_;
    EditKind kind_;
    bool isMade_ = true;
};

/// A record that was made or deleted, which has happened when the command is pushed.
class PresenceCommand final : public QUndoCommand
{
public:
    PresenceCommand(InvoiceManager& invoices, Invoice record, bool isPresent, const char* text,
                    QUndoCommand* step = nullptr)
        : QUndoCommand(step), invoices_(invoices), record_(std::move(record)), isPresent_(isPresent)
    {
        setText(QCoreApplication::translate("UndoText", text));
    }

    void undo() override { apply(!isPresent_); }
    void redo() override
    {
        if (std::exchange(isMade_, false))
            return;
        apply(isPresent_);
    }

private:
    /// What fails has been told by the store or shows in the list.
    void apply(bool isPresent)
    {
        const InvoicePtr present = invoices_.find(record_.id);
        if (isPresent && !present) {
            (void)invoices_.insert(record_);
        } else if (!isPresent && present) {
            record_ = **present; // as it is by now
            (void)invoices_.remove(record_.id);
        }
    }

    InvoiceManager& invoices_;
    Invoice record_;
    bool isPresent_; ///< after the command
    bool isMade_ = true;
};

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
    new PresenceCommand(invoices_, record, true, "", changes_.get());
}

void UndoStep::edited(const Invoice& before, const Invoice& after)
{
    if (before != after)
        new EditCommand(invoices_, before, after, EditKind::single, changes_.get());
}

JobResult<void> UndoableJobs::edit(const QUuid& id, const std::function<void(Invoice&)>& change,
                                   EditKind kind, Force force)
{
    const InvoicePtr record = invoices_.find(id);
    const Invoice before = record ? **record : Invoice();
    if (const JobResult<void> edited = jobs_.editSoon(id, change, force); !edited)
        return edited;
    if (before != **record)
        invoices_.undoStack().push(new EditCommand(invoices_, before, **record, kind)); // the stack owns it
    return {};
}

JobResult<InvoicePtr> UndoableJobs::made(JobResult<InvoicePtr> record, const char* text)
{
    if (record)
        invoices_.undoStack().push(new PresenceCommand(invoices_, ***record, true, text));
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
        stack.push(new EditCommand(invoices_, before, **original, EditKind::single));
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
        new PresenceCommand(invoices_, before, false, QT_TRANSLATE_NOOP("UndoText", "Delete")));
    return {};
}

} // namespace ledra
