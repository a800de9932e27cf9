#pragma once

#include "ui/look/section.h"
#include "ui/window_parts.h"

namespace ledra {

/// The whole styling as a file, for another profile or another computer.
class StyleFileSection : public Section
{
    Q_OBJECT

public:
    StyleFileSection(const WindowParts& parts, QWidget* parent);
};

} // namespace ledra
