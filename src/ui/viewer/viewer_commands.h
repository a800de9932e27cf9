#pragma once

#include <span>

namespace ledra {

class ViewerWindow;

/// How a command stands in the tool bar.
enum class ToolBarLook { none, icon, iconAndText };

/// One command of the viewer, as data.
struct ViewerCommand
{
    const char* text;
    void (ViewerWindow::*run)();
    const char* shortcuts; ///< as QKeySequence reads them, with "; " between; empty for none
    const char* icon = nullptr;
    ToolBarLook look = ToolBarLook::none;
    bool needsTab = true;
};

/// In the order of the tool bar.
std::span<const ViewerCommand> viewerCommands();

} // namespace ledra
