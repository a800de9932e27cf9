#pragma once

#include "ui/assistant/first_start_draft.h"
#include "ui/window_parts.h"

#include <span>

namespace ledra {

/// What a step of the first start works with.
struct FirstStartSetting
{
    const WindowParts& parts;
    FirstStartDraft& draft;
};

/// A step of the first start.
struct FirstStartStep
{
    const char* title;
    const char* text; ///< why it is asked
    QWidget* (*make)(const FirstStartSetting& setting, QWidget* parent);
};

/// The steps in their order, after the terms.
std::span<const FirstStartStep> firstStartSteps();

} // namespace ledra
