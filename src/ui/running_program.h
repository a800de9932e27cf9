#pragma once

#include "platform/folder_watcher.h"
#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "ui/desktop/application_bus.h"
#include "ui/desktop/application_icon.h"
#include "ui/desktop/launcher_badge.h"
#include "ui/look/appearance.h"
#include "ui/look/interface_language.h"
#include "ui/package_updater.h"
#include "ui/window_console.h"
#include "ui/window_front.h"

namespace ledra {

class MainWindow;

/// What lives as long as the program runs as a window, in the order in which one part needs another.
class RunningProgram : public QObject
{
    Q_OBJECT

public:
    explicit RunningProgram(ApplicationBus& bus);
    ~RunningProgram() override;

    /// Takes in what the program was started with.
    void open(const QList<QUrl>& urls);

    MainWindow& window() { return *window_; }

private:
    void followBus(ApplicationBus& bus);
    void followSettingsFile();
    void followWhenAnswered();
    void openWindow();
    void followSettings();
    void speakAnew();

    WindowConsole console_;
    PackageUpdater updater_;
    WindowFront front_;
    LedraApp app_;
    FolderWatcher settingsWatcher_; ///< of the folder with the settings file
    InterfaceLanguage language_;
    AppearanceController appearance_;
    ApplicationIcon icon_;
    LauncherBadge badge_;
    QtWebEngine engine_;
    WebFontManager fonts_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace ledra
