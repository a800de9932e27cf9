#include "ui/reminders/variable_buttons.h"

#include "ui/chips/token_button.h"
#include "ui/reminders/variable_text_edit.h"

#include <QGridLayout>

namespace ledra {

VariableButtons::VariableButtons(VariableTextEdit& text, int columns, QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);
    int place = 0;
    for (const EnumText<ReminderVariable>& row : enumTexts<ReminderVariable>) {
        auto* button = new TokenButton(token(row.value), variableLabel(row.value), text, this);
        button->setObjectName(QLatin1StringView(row.rawValue));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        grid->addWidget(button, place / columns, place % columns);
        ++place;
    }
}

} // namespace ledra
