#pragma once

#include <span>

namespace ledra {

class ViewerWindow;

/// One command of the viewer, as data.
struct ViewerCommand
{
    const char* text;
    void (ViewerWindow::*run)();
    const char* shortcuts; ///< as QKeySequence reads them, with "; " between; empty for none
    const char* icon = nullptr;
    bool isInToolBar = false;
    bool needsTab = true;
};

/// In the order of the tool bar.
std::span<const ViewerCommand> viewerCommands();

} // namespace ledra
