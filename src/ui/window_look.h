#pragma once

#include "platform/user_defaults.h"

#include <QHeaderView>
#include <QMainWindow>
#include <QSplitter>
#include <QUuid>

namespace ledra {

class Console;
class PreviewPanel;

/// What of the main window outlives it: place and size, widths, columns and their order, zoom, whether the
/// editor is open, and the chosen record.
struct WindowLook
{
    QMainWindow& window;
    QSplitter& splitter;
    QHeaderView& columns;
    PreviewPanel& preview;

    struct State
    {
        bool isEditorOpen = false;
        QUuid selectedId;
    };

    State restore(const UserDefaults& defaults) const;
    void keep(UserDefaults& defaults, Console& console, const State& state) const;
};

} // namespace ledra
