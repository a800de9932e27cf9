#pragma once

#include "model/enumerations.h"

namespace ledra {

/// The language of menus, messages and lists: German where the system speaks it, English everywhere else.
Language readerLanguage();

} // namespace ledra
