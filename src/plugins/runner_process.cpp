#include "plugins/runner_process.h"

#include "plugins/message_frame.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>

namespace ledra {

namespace {

constexpr int endSeconds = 5; ///< more than any process needs to end that was killed

/// Only what the languages and the time zone are found by; nothing of the user's.
QProcessEnvironment environment()
{
    QProcessEnvironment lean;
    for (const char* name :
         {"TZ", "LANG", "LC_ALL", "LC_TIME", "LC_NUMERIC", "ASAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            lean.insert(QString::fromLatin1(name), qEnvironmentVariable(name));
    }
    return lean;
}

} // namespace

QString runnerProgram()
{
    const QString name = QStringLiteral("ledra-plugin-runner");
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + u'/' + name;
    return QFileInfo::exists(beside) ? beside : folder + QStringLiteral("/../libexec/ledra/") + name;
}

void RunnerProcess::start(const QString& program, int megabytes)
{
    stop();
    process_ = std::make_unique<QProcess>();
    process_->setProcessEnvironment(environment());
    process_->setStandardErrorFile(QProcess::nullDevice());
    connect(process_.get(), &QProcess::readyReadStandardOutput, this, &RunnerProcess::take);
    const auto end = [this, process = process_.get()] {
        if (process_.get() != process) // it was stopped meanwhile
            return;
        stop();
        Q_EMIT ended();
    };
    // Later, since a process may fail to start before this returns.
    connect(process_.get(), &QProcess::errorOccurred, this, end, Qt::QueuedConnection);
    connect(process_.get(), &QProcess::finished, this, end, Qt::QueuedConnection);
    process_->start(program, {QString::number(megabytes)});
}

void RunnerProcess::send(const QJsonObject& message)
{
    if (process_)
        process_->write(framed(message));
}

void RunnerProcess::stop()
{
    arrived_.clear();
    if (!process_)
        return;
    // The object may be at work further up on the stack, so it goes later.
    QProcess* process = process_.release();
    disconnect(process, nullptr, this, nullptr);
    process->kill();
    process->waitForFinished(endSeconds * 1000);
    process->deleteLater();
}

void RunnerProcess::take()
{
    arrived_ += process_->readAllStandardOutput();
    const QPointer<RunnerProcess> self(this);
    const QProcess* current = process_.get();
    while (self && process_.get() == current) {
        const auto message = takeMessage(arrived_);
        if (!message) {
            stop();
            Q_EMIT ended();
            return;
        }
        const std::optional<QJsonObject>& whole = *message;
        if (!whole)
            return;
        Q_EMIT received(*whole);
    }
}

} // namespace ledra
