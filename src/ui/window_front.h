#pragma once

#include "app/ledra_app.h"

namespace ledra {

class MainWindow;

/// The windows as the application asks for them. It is there before them.
class WindowFront final : public WindowController
{
public:
    void setWindow(MainWindow* window) { window_ = window; }

    void showMainWindow() override;
    void openSettings() override;

private:
    MainWindow* window_ = nullptr;
};

} // namespace ledra
