#pragma once

#include "model/enumerations.h"
#include "model/timestamp.h"

#include <QUndoCommand>

#include <functional>

namespace ledra {

/// Sets a status together with the moment of its change.
class SetStatusCommand final : public QUndoCommand
{
public:
    using Apply = std::function<void(Status, Timestamp)>;

    SetStatusCommand(Status before, Timestamp dateBefore, Status after, Timestamp dateAfter, Apply apply)
        : before_(before),
          after_(after),
          dateBefore_(dateBefore),
          dateAfter_(dateAfter),
          apply_(std::move(apply))
    {
        setText(displayText(after));
    }

    void undo() override { apply_(before_, dateBefore_); }
    void redo() override { apply_(after_, dateAfter_); }

private:
    Status before_;
    Status after_;
    Timestamp dateBefore_;
    Timestamp dateAfter_;
    Apply apply_;
};

} // namespace ledra
