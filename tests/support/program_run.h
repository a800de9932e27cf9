#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <unistd.h>

#include <functional>
#include <memory>

namespace ledra::test {

/// What a run of the program left behind.
struct ProgramRun
{
    int exitCode = -1; ///< -1: it crashed, hung or could not be started
    QByteArray output;
    QStringList errors; ///< the lines on standard error
};

/// What a run of the program finds around it.
struct RunSetting
{
    QByteArray input = {};
    QString locale = QStringLiteral("C.UTF-8"); ///< the system's
    QHash<QString, QString> variables = {};     ///< of the environment, instead of the test's
    std::function<void()> beforeStart = {};     ///< run in the new process
};

/// Starts the program; all of the input is on its way.
inline std::unique_ptr<QProcess> startProgram(const QStringList& arguments, const RunSetting& setting = {})
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), setting.locale);
    for (const char* display :
         {"DISPLAY", "WAYLAND_DISPLAY"}) // where there is one, the program opens windows
        environment.remove(QString::fromLatin1(display));
    for (const auto& [name, value] : setting.variables.asKeyValueRange())
        environment.insert(name, value);
    process->setProcessEnvironment(environment);
    if (setting.beforeStart)
        process->setChildProcessModifier(setting.beforeStart);
    process->start(QStringLiteral(LEDRA_PROGRAM), arguments);
    process->write(setting.input);
    process->closeWriteChannel();
    return process;
}

/// Waits for its end.
inline ProgramRun endOf(QProcess& process)
{
    ProgramRun run;
    if (process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = QString::fromUtf8(process.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
    return run;
}

inline ProgramRun runProgram(const QStringList& arguments, const RunSetting& setting = {})
{
    return endOf(*startProgram(arguments, setting));
}

inline QString example(const QString& name)
{
    return QStringLiteral(LEDRA_EXAMPLES "/") + name;
}

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// All files below a folder with their contents.
inline QMap<QString, QByteArray> filesBelow(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator iterator(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QString path = iterator.next();
        files[path] = contentOf(path);
    }
    return files;
}

/// A home of its own for runs of the program, empty at first.
class ProgramHome
{
public:
    ProgramHome()
    {
        QDir(path()).mkdir(QStringLiteral("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString path(const QString& name = {}) const { return folder_.filePath(name); }

    /// The data folder, or something in it.
    QString data(const QString& name = {}) const { return path(QStringLiteral("data/Ledra/Data/") + name); }

    QHash<QString, QString> variables() const
    {
        return {{QStringLiteral("XDG_DATA_HOME"), path(QStringLiteral("data"))},
                {QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("config"))},
                {QStringLiteral("XDG_RUNTIME_DIR"), path(QStringLiteral("run"))}};
    }

    /// Makes it the home of this process as well.
    void enter() const
    {
        for (const auto& [name, value] : variables().asKeyValueRange())
            qputenv(name.toLatin1().constData(), value.toUtf8());
    }

    /// The words of a command line, of which those with blanks are quoted; "{A}" stands for the id under "A".
    QStringList words(const char* line) const
    {
        QString text = QString::fromUtf8(line);
        for (const auto& [name, id] : ids.asKeyValueRange())
            text.replace(u'{' + name + u'}', id);
        return QProcess::splitCommand(text);
    }

    std::unique_ptr<QProcess> start(const char* line) const
    {
        return startProgram(words(line), {.variables = variables()});
    }

    ProgramRun run(const char* line, const QStringList& more = {}) const
    {
        return runProgram(words(line) + more, {.variables = variables()});
    }

    /// Whether it ends well and says nothing of failures.
    bool succeeds(const char* line, const QStringList& more = {}) const
    {
        const ProgramRun ended = run(line, more);
        return ended.exitCode == 0 && ended.errors.isEmpty();
    }

    /// Runs it as one whom permissions stop: root is not.
    ProgramRun runUnprivileged(const char* line) const
    {
        const auto stepDown = [] {
            if (::getuid() == 0 && (::setgid(somebodyElse) != 0 || ::setuid(somebodyElse) != 0))
                ::_exit(99);
        };
        return runProgram(words(line), {.variables = variables(), .beforeStart = stepDown});
    }

    /// Hands the home to that one, with or without the right to change the data folder.
    bool handOver(bool isWritable) const
    {
        const auto change = [](const char* tool, const char* what, const QString& folder) {
            const QStringList arguments = {QStringLiteral("-R"), QString::fromLatin1(what), folder};
            return QProcess::execute(QString::fromLatin1(tool), arguments) == 0;
        };
        return (::getuid() != 0 || change("chown", "65534", path())) &&
               change("chmod", isWritable ? "u+w" : "a-w", data());
    }

    QJsonDocument json(const char* line) const { return QJsonDocument::fromJson(run(line).output); }

    QHash<QString, QString> ids;

private:
    static constexpr uid_t somebodyElse = 65534;

    QTemporaryDir folder_;
};

} // namespace ledra::test
