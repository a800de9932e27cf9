#include "cli/program.h"

#include "cli/command_table.h"
#include "platform/version.h"
#include "render/qt_web_engine.h"

#include <QApplication>
#include <QCoreApplication>

#include <memory>

namespace ledra {

namespace {

QStringList textsOf(int argc, char** argv)
{
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts += QString::fromLocal8Bit(argv[i]);
    return texts;
}

QString versionText()
{
    return QStringLiteral("ledra ") +
           QString::fromUtf8(shortVersion.data(), static_cast<qsizetype>(shortVersion.size())) + u'\n';
}

void addOptions(QCommandLineParser& parser, std::span<const OptionSpec> options)
{
    for (const OptionSpec& option : options) {
        QStringList names = {QString::fromLatin1(option.name)};
        if (*option.shortName != '\0')
            names += QString::fromLatin1(option.shortName);
        parser.addOption(
            QCommandLineOption(names, QString::fromUtf8(option.help), QString::fromLatin1(option.value)));
    }
}

/// The libraries' own remarks (that there is no graphics card, say) are of no use to who exports an invoice.
void showOnlyGraveMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        sayFailure(message);
}

/// A command that lays out documents needs the whole application object; the others start without the engine.
std::unique_ptr<QCoreApplication> makeApplication(bool needsWebEngine, int& argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Ledra"));
    if (!needsWebEngine)
        return std::make_unique<QCoreApplication>(argc, argv);
    QtWebEngine::prepare(false);
    return std::make_unique<QApplication>(argc, argv);
}

ExitCode runCommand(Command& command, const QStringList& texts, int argc, char** argv)
{
    const CommandSpec& spec = command.spec();
    QCommandLineParser parser;
    addOptions(parser, spec.options);
    addOptions(parser, commonOptions());
    if (!parser.parse(texts))
        return wrongUsage(spec, parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        writeOutput(commandHelp(spec));
        return ExitCode::done;
    }
    if (!parser.isSet(QStringLiteral("verbose")))
        qInstallMessageHandler(showOnlyGraveMessages);
    argc = 1; // the engine reads the program's arguments; it is shown none of ours
    const CommandArguments arguments(parser, spec);
    const auto application = makeApplication(command.needsWebEngine(arguments), argc, argv);
    return command.run(arguments);
}

/// The common options may also stand before the command: they are put behind it.
QStringList withCommandFirst(QStringList texts)
{
    const QStringList alone = {QStringLiteral("--json"), QStringLiteral("--quiet"), QStringLiteral("-q"),
                               QStringLiteral("--verbose")};
    qsizetype left = texts.size(); // of those that may be moved; ends where nothing else stands there
    while (left-- > 1) {
        const QString first = texts.value(1);
        if (first == u"--profile" && texts.size() > 2)
            texts.append(texts.takeAt(1));
        else if (!alone.contains(first) && !first.startsWith(QStringLiteral("--profile=")))
            break;
        texts.append(texts.takeAt(1));
    }
    return texts;
}

} // namespace

bool isCommandLine(int argc, char** argv)
{
    return argc > 1 && findCommand(QString::fromLocal8Bit(argv[1])) != nullptr;
}

int runProgram(int argc, char** argv)
{
    QStringList texts = withCommandFirst(textsOf(argc, argv));
    const QString first = texts.value(1);
    if (first == u"--help" || first == u"-h" || first == u"help") {
        writeOutput(programHelp());
        return static_cast<int>(ExitCode::done);
    }
    if (first == u"--version") {
        writeOutput(versionText());
        return static_cast<int>(ExitCode::done);
    }
    const std::unique_ptr<Command> command = findCommand(first);
    if (!command) {
        sayFailure(first.isEmpty()
                       ? QStringLiteral("no command given (see \"ledra --help\")")
                       : QStringLiteral("unknown command \"%1\" (see \"ledra --help\")").arg(first));
        return static_cast<int>(ExitCode::wrongUsage);
    }
    texts.removeAt(1);
    return static_cast<int>(runCommand(*command, texts, argc, argv));
}

} // namespace ledra
