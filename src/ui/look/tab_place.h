#pragma once

#include <QWidget>

namespace ledra {

/// Has Tab come to a stop where another widget stands, which need not be a stop itself: Qt orders stops only.
inline void setTabPlace(QWidget& place, QWidget& stop)
{
    const Qt::FocusPolicy policy = place.focusPolicy();
    place.setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(&place, &stop);
    place.setFocusPolicy(policy);
}

} // namespace ledra
