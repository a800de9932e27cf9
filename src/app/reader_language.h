#pragma once

#include "model/enumerations.h"

namespace ledra {

/// The language of menus, messages and lists: German where Qt's default locale is, English everywhere else.
/// That locale is the system's, unless the window's setting "language" says otherwise.
Language readerLanguage();

} // namespace ledra
