#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QObject>
#include <QProcess>

#include <memory>

namespace ledra {

/// Where the plugin runner lies: beside the program, or in "../libexec/ledra" seen from there.
QString runnerProgram();

/// The runner's process and the messages from and to it.
class RunnerProcess : public QObject
{
    Q_OBJECT

public:
    ~RunnerProcess() override { stop(); }

    void start(const QString& program, int megabytes);
    bool isRunning() const { return process_ != nullptr; }
    qint64 processId() const { return process_ ? process_->processId() : 0; }
    void send(const QJsonObject& message);

    /// Ends the process at once; no signal tells of it.
    void stop();

Q_SIGNALS:
    void received(const QJsonObject& message);
    void ended(); ///< by itself, or because it said what is no message

private:
    void take();

    std::unique_ptr<QProcess> process_;
    QByteArray arrived_;
};

} // namespace ledra
