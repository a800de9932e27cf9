#include "ui/window_program.h"

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "ui/look/appearance.h"
#include "ui/look/interface_language.h"
#include "ui/main_window.h"
#include "ui/package_updater.h"
#include "ui/window_console.h"
#include "ui/window_front.h"

#include <QApplication>

namespace ledra {

bool wantsWindow(int argc, char**)
{
    const bool hasDisplay =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    return argc == 1 && hasDisplay;
}

int runWindow(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Ledra"));
    QtWebEngine::prepare(true);
    const QApplication application(argc, argv);
    const InterfaceLanguage language;
    WindowConsole console;
    PackageUpdater updater;
    WindowFront front;
    LedraApp app({.console = console, .windows = &front, .updater = &updater});
    AppearanceController appearance(app.settings());
    QtWebEngine engine;
    WebFontManager fonts;
    app.followFonts(fonts);
    MainWindow window(app, engine, fonts);
    front.setWindow(&window);
    QObject::connect(&window, &MainWindow::appearanceChanged, &appearance, &AppearanceController::apply);
    window.follow(console);
    QObject::connect(&updater, &PackageUpdater::answered, &window.parts().messages, &MessageBar::note);
    window.show();
    app.keepBackups();
    app.pluginManager().start();
    return QApplication::exec();
}

} // namespace ledra
