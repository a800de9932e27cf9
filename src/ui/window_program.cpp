#include "ui/window_program.h"

#include "ui/look/appearance.h"
#include "ui/main_window.h"
#include "ui/window_console.h"

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
    WindowConsole console;
    LedraApp app({.console = console});
    AppearanceController appearance(app.settings());
    QtWebEngine engine;
    WebFontManager fonts;
    app.followFonts(fonts);
    MainWindow window(app, engine, fonts);
    window.follow(console);
    window.show();
    app.keepBackups();
    return QApplication::exec();
}

} // namespace ledra
