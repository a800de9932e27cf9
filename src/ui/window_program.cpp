#include "ui/window_program.h"

#include "platform/console.h"
#include "ui/main_window.h"

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
    CommandConsole console(CommandConsole::Verbosity::normal);
    LedraApp app({.console = console});
    QtWebEngine engine;
    WebFontManager fonts;
    app.followFonts(fonts);
    MainWindow window(app, engine, fonts);
    window.show();
    app.keepBackups();
    return QApplication::exec();
}

} // namespace ledra
