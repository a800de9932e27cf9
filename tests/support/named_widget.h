#pragma once

#include <QAbstractButton>
#include <QWidget>

namespace ledra::test {

/// The control that somebody finds under a name: a button by its text, a field by what it is called.
template <class Control>
Control* named(const QWidget& parent, const char* name)
{
    const QString wanted = QString::fromUtf8(name);
    for (Control* each : parent.findChildren<Control*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(each);
        if (each->accessibleName() == wanted || (button && button->text() == wanted))
            return each;
    }
    qFatal("There is no control %s", name);
}

} // namespace ledra::test
