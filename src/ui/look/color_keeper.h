#pragma once

class QWidget;

namespace ledra {

struct StatusLook;

/// Gives a widget, and the texts in it, the colours of a look, and those of the other appearance as soon as
/// that comes into force. The ground is seen where the widget fills it.
void keepColors(QWidget& widget, const StatusLook& look);

} // namespace ledra
