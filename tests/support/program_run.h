#pragma once

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace ledra::test {

/// What a run of the program left behind.
struct ProgramRun
{
    int exitCode = -1; ///< -1: it crashed, hung or could not be started
    QByteArray output;
    QStringList errors; ///< the lines on standard error
};

/// Runs the program; `locale` is that of the system it finds.
inline ProgramRun runProgram(const QStringList& arguments, const QByteArray& input = {},
                             const QString& locale = QStringLiteral("C.UTF-8"))
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(LEDRA_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramRun run;
    if (process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = QString::fromUtf8(process.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
    return run;
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

} // namespace ledra::test
