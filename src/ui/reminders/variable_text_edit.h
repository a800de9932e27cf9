#pragma once

#include "model/reminder_variable.h"
#include "ui/chips/chip_text_edit.h"

namespace ledra {

/// The text of a letter, with its variables as chips. What goes back and forth is the application's undo
/// stack.
class VariableTextEdit : public ChipTextEdit
{
    Q_OBJECT

public:
    explicit VariableTextEdit(QWidget* parent = nullptr);

    /// Puts a variable in place of what is selected.
    void insertVariable(ReminderVariable variable);

    /// What a variable stands for, to be told when the pointer rests on its chip.
    void setValues(const std::function<QString(ReminderVariable)>& valueOf);
};

/// "Invoice Number", in the language of the window.
QString variableLabel(ReminderVariable variable);

} // namespace ledra
