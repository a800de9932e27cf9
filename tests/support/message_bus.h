#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>

namespace ledra::test {

/// A message bus of the test's own.
class MessageBus
{
public:
    /// False where there is no program for it.
    bool start()
    {
        const QString tool = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (tool.isEmpty())
            return false;
        daemon_.start(tool, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                             QStringLiteral("--print-address=1")});
        if (daemon_.waitForReadyRead())
            address_ = QString::fromUtf8(daemon_.readLine().trimmed());
        return !address_.isEmpty();
    }

    ~MessageBus()
    {
        daemon_.kill();
        daemon_.waitForFinished();
    }

    const QString& address() const { return address_; }

    /// Connections of one name are the same.
    QDBusConnection connection(const char* name) const
    {
        return QDBusConnection::connectToBus(address_, QString::fromLatin1(name));
    }

private:
    QProcess daemon_;
    QString address_;
};

} // namespace ledra::test
