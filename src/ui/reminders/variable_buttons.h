#pragma once

#include <QWidget>

namespace ledra {

class VariableTextEdit;

/// A button a variable of letters, which inserts it into a text.
class VariableButtons : public QWidget
{
    Q_OBJECT

public:
    VariableButtons(VariableTextEdit& text, int columns, QWidget* parent);
};

} // namespace ledra
