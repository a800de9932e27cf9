#include "ui/window_program.h"

#include "ui/assistant/first_start_assistant.h"
#include "ui/desktop/application_bus.h"
#include "ui/running_program.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

/// Whether an argument is something that the desktop hands to the program, rather than a word of its command
/// line.
bool isHandedOver(const QString& argument)
{
    return argument.startsWith(u"ledra:") || argument.startsWith(u"file:") || QFileInfo::exists(argument);
}

QList<QUrl> handedOver(const QStringList& arguments)
{
    QList<QUrl> urls;
    for (const QString& argument : arguments)
        urls += QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile);
    return urls;
}

} // namespace

bool wantsWindow(int argc, char** argv)
{
    const bool hasDisplay =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    return hasDisplay && std::all_of(argv + 1, argv + argc,
                                     [](char* each) { return isHandedOver(QString::fromLocal8Bit(each)); });
}

int runWindow(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Ledra"));
    QGuiApplication::setDesktopFileName(QLatin1String(applicationId));
    QtWebEngine::prepare(true);
    const QApplication application(argc, argv);
    const QList<QUrl> urls = handedOver(QCoreApplication::arguments().mid(1));
    ApplicationBus bus;
    // One that does not answer must not keep people from their records; two instances get along.
    if (!bus.becomeFirst() && bus.handOver(urls))
        return 0;
    RunningProgram program(bus);
    if (urls.isEmpty())
        offerFirstStart(program.window());
    else
        program.open(urls);
    return QApplication::exec();
}

} // namespace ledra
