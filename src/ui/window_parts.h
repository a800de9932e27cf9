#pragma once

#include "app/ledra_app.h"
#include "ui/console_text.h"
#include "ui/look/message_bar.h"

class QWidget;

namespace ledra {

class QtWebEngine;
class WebFontManager;

/// What the parts of a window work with.
struct WindowParts
{
    LedraApp& app;
    QtWebEngine& engine;
    WebFontManager& fonts;
    MessageBar& messages;
    QWidget& window; ///< what dialogs belong to

    /// Whether a job was done; if not, says why, unless the console has.
    template <class T>
    bool succeeded(const JobResult<T>& result) const
    {
        if (!result && !result.error().isReported)
            messages.warn(consoleText(result.error().text));
        return result.has_value();
    }
};

} // namespace ledra
