#include "ui/viewer/viewer_commands.h"

#include "ui/viewer/viewer_window.h"

namespace ledra {

namespace {

using Look = ToolBarLook;

constexpr std::array commands = {
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Open…"), &ViewerWindow::select, "Ctrl+O", "folder",
                  Look::iconAndText, false},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Import as Invoice"), &ViewerWindow::importCurrent, "Ctrl+I",
                  "import", Look::iconAndText},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Save as PDF…"), &ViewerWindow::saveCurrent, "Ctrl+S", "export",
                  Look::iconAndText},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Print…"), &ViewerWindow::printCurrent, "Ctrl+P", "print",
                  Look::iconAndText},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Zoom Out"), &ViewerWindow::zoomOut, "Ctrl+-", "zoom-out",
                  Look::icon},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Zoom In"), &ViewerWindow::zoomIn, "Ctrl++; Ctrl+=", "zoom-in",
                  Look::icon},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Actual Size"), &ViewerWindow::actualSize, "Ctrl+0"},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Close Tab"), &ViewerWindow::closeCurrent, "Ctrl+W; Ctrl+F4",
                  nullptr, Look::none, false},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Next Tab"), &ViewerWindow::nextTab, "Ctrl+PgDown; Ctrl+Tab"},
    ViewerCommand{QT_TRANSLATE_NOOP("Viewer", "Previous Tab"), &ViewerWindow::previousTab,
                  "Ctrl+PgUp; Ctrl+Shift+Tab"},
};

} // namespace

std::span<const ViewerCommand> viewerCommands()
{
    return commands;
}

} // namespace ledra
