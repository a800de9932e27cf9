#pragma once

#include "model/field_changes.h"

#include <QCoreApplication>
#include <QUndoCommand>

#include <functional>
#include <utility>

namespace ledra {

/// A step that has been taken when it is pushed, with its text in the context "UndoText".
class TakenStep : public QUndoCommand
{
public:
    /// @param whole the step of which this is a part, and which then owns it
    explicit TakenStep(const char* text, QUndoCommand* whole = nullptr) : QUndoCommand(whole)
    {
        setText(QCoreApplication::translate("UndoText", text));
    }

    void redo() final
    {
        if (!std::exchange(isTaken_, false))
            takeAgain();
    }

protected:
    virtual void takeAgain() = 0;

private:
    bool isTaken_ = true;
};

/// What joins edits to one step: those of a run of typing have the same id and the same run.
struct TypingRun
{
    int id = -1; ///< as QUndoCommand has it; each kind of record has its own, -1 joins nothing
    int run = 0;
};

/// A change of fields of a record.
template <class T>
class EditStep final : public TakenStep
{
public:
    /// Brings the record with the id of the two states, if it is still there, from the one to the other in
    /// the named fields.
    using Apply = std::function<void(const T& from, const T& to, const FieldSet<T>& fields)>;

    EditStep(const char* text, T before, T after, TypingRun run, Apply apply, QUndoCommand* whole = nullptr)
        : TakenStep(text, whole),
          before_(std::move(before)),
          after_(std::move(after)),
          fields_(changedFields(before_, after_)),
          run_(run),
          apply_(std::move(apply))
    {}

    void undo() override { apply_(after_, before_, fields_); }
    int id() const override { return run_.id; }

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next = static_cast<const EditStep*>(other); // of the same id(), so of the same class
        if (next->before_.id != before_.id || next->fields_ != fields_ || next->run_.run != run_.run)
            return false;
        // What somebody else has changed between the two is part of neither.
        if ((changedFields(after_, next->before_) & fields_).any())
            return false;
        copyFields(next->after_, after_, fields_);
        fields_ &= changedFields(before_, after_);
        setObsolete(fields_.none());
        return true;
    }

protected:
    void takeAgain() override { apply_(before_, after_, fields_); }

private:
    T before_;
    T after_;
    FieldSet<T> fields_;
    TypingRun run_;
    Apply apply_;
};

/// A record that was made or deleted. The store tells what fails, or the list shows it.
template <class Store, class T>
class PresenceStep final : public TakenStep
{
public:
    PresenceStep(const char* text, Store& store, T record, bool isPresent, QUndoCommand* whole = nullptr)
        : TakenStep(text, whole), store_(store), record_(std::move(record)), isPresent_(isPresent)
    {}

    void undo() override { apply(!isPresent_); }

protected:
    void takeAgain() override { apply(isPresent_); }

private:
    void apply(bool isPresent)
    {
        const auto present = store_.find(record_.id);
        if (isPresent && !present) {
            (void)store_.insert(record_);
        } else if (!isPresent && present) {
            record_ = **present; // as it is by now
            (void)store_.remove(record_.id);
        }
    }

    Store& store_;
    T record_;
    bool isPresent_; ///< after the step
};

} // namespace ledra
