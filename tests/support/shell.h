#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

namespace ledra::test {

/// What a script wrote that ran in a folder, "" when all went well and it had nothing to say.
inline QByteArray shell(const QString& folder, const QByteArray& script)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(QStringLiteral("sh"), {QStringLiteral("-ec"), QString::fromUtf8(script)});
    const bool isFine = process.waitForFinished() && process.exitCode() == 0;
    return isFine ? process.readAllStandardOutput() : "failed: " + process.readAllStandardError();
}

} // namespace ledra::test
