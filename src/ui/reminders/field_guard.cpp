#include "ui/reminders/field_guard.h"

#include "ui/look/undo_guard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QWidget>

namespace ledra {

namespace {

bool isTurnedByWheel(const QObject& field)
{
    return qobject_cast<const QAbstractSpinBox*>(&field) || qobject_cast<const QComboBox*>(&field);
}

} // namespace

void FieldGuard::watch(QWidget* field)
{
    field->installEventFilter(this);
    field->setFocusPolicy(Qt::StrongFocus); // not by the wheel
    const QList<QWidget*> parts = field->findChildren<QWidget*>();
    for (QWidget* part : parts)
        part->installEventFilter(this);
}

bool FieldGuard::eventFilter(QObject* field, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (!isUndoOrRedo(*static_cast<QKeyEvent*>(event)))
            return false;
        Q_EMIT pausing();
        event->ignore(); // the window's shortcut takes it
        return true;
    case QEvent::Wheel:
        if (!isTurnedByWheel(*field) || static_cast<QWidget*>(field)->hasFocus())
            return false;
        event->ignore(); // what is around the field scrolls
        return true;
    case QEvent::FocusOut:
        Q_EMIT pausing();
        return false;
    default:
        return false;
    }
}

} // namespace ledra
