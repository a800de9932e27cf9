#include "ui/window_front.h"

#include "ui/main_window.h"

namespace ledra {

void WindowFront::showMainWindow()
{
    if (!window_)
        return;
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void WindowFront::openSettings()
{
    if (window_)
        window_->openSettings();
}

} // namespace ledra
