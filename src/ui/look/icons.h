#pragma once

#include <QIcon>

namespace ledra {

/// One of the application's own line drawings (resources/icons, 24 x 24), in the colour of the text around
/// it. It is drawn when it is painted, so that it follows the appearance and is sharp at any size.
QIcon lineIcon(const char* name);

/// The same in a colour of its own.
QIcon lineIcon(const char* name, const QColor& color);

} // namespace ledra
