#include "plugins/connector_script.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <memory>

namespace ledra {

namespace {

const QString scriptName = QStringLiteral("LedraConnector.scpt");
constexpr qsizetype largestOutput = qsizetype{16} << 20;

std::expected<QJsonObject, QString> outputOf(QProcess& process)
{
    const QByteArray output = process.readAllStandardOutput();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return std::unexpected(QStringLiteral("%1 failed").arg(scriptName));
    const QJsonDocument value = QJsonDocument::fromJson('[' + output + ']');
    if (output.size() > largestOutput || value.array().size() != 1)
        return std::unexpected(QStringLiteral("%1 wrote no JSON").arg(scriptName));
    return QJsonObject{{QStringLiteral("value"), value.array().first()}};
}

} // namespace

std::expected<QString, QString> findConnector(const QString& folder)
{
    const QFileInfo file(folder + u'/' + scriptName);
    if (file.isFile() && file.isExecutable())
        return file.absoluteFilePath();
    return std::unexpected(QStringLiteral("The Ledra connector isn’t installed. Add ") + scriptName +
                           QStringLiteral(" to ") + folder);
}

void callConnector(const QString& script, const QJsonObject& detail, QObject* owner,
                   const std::function<void(const std::expected<QJsonObject, QString>&)>& answer)
{
    // Not a child: destroyed while it runs it would warn and wait.
    auto* process = new QProcess;
    QObject::connect(owner, &QObject::destroyed, process, &QProcess::kill);
    const auto end = [process, answer] {
        answer(outputOf(*process));
        process->deleteLater();
    };
    QObject::connect(process, &QProcess::finished, owner, end);
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, owner,
                     [answer, process](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart) {
                             answer(std::unexpected(QStringLiteral("%1 cannot be started").arg(scriptName)));
                             process->deleteLater();
                         }
                     });
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(script, {QStringLiteral("ledraRun")});
    const QByteArray list =
        QJsonDocument(QJsonArray{detail[QStringLiteral("value")]}).toJson(QJsonDocument::Compact);
    process->write(list.sliced(1, list.size() - 2));
    process->closeWriteChannel();
}

} // namespace ledra
