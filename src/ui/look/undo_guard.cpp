#include "ui/look/undo_guard.h"

#include <QCoreApplication>

namespace ledra {

bool isUndoOrRedo(const QKeyEvent& key)
{
    const QKeySequence pressed(key.keyCombination());
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) ||
           pressed == QKeySequence(QStringLiteral("Ctrl+Y")) ||
           pressed == QKeySequence(QStringLiteral("Ctrl+Shift+Z"));
}

UndoGuard::UndoGuard(QWidget& panel) : QObject(&panel), panel_(panel)
{
    QCoreApplication::instance()->installEventFilter(this); // fields come and go
}

bool UndoGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !panel_.isAncestorOf(widget) || !isUndoOrRedo(*static_cast<QKeyEvent*>(event)))
        return false;
    event->ignore(); // the window's shortcut takes it
    return true;
}

} // namespace ledra
