#pragma once

#include <QLineEdit>
#include <QSignalBlocker>

namespace ledra {

/// Shows a text without moving the cursor of somebody who types it.
inline void showText(QLineEdit& field, const QString& text)
{
    if (field.text() == text)
        return;
    const QSignalBlocker quiet(field);
    const int cursor = field.cursorPosition();
    field.setText(text);
    field.setCursorPosition(field.hasFocus() ? cursor : 0); // of a long text the beginning
}

} // namespace ledra
