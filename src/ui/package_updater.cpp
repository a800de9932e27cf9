#include "ui/package_updater.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingReply>

namespace ledra {

namespace {

const QString service = QStringLiteral("org.freedesktop.PackageKit");
const QString servicePath = QStringLiteral("/org/freedesktop/PackageKit");
const QString transactionInterface = QStringLiteral("org.freedesktop.PackageKit.Transaction");
const QString packageName = QStringLiteral("ledra");

} // namespace

void PackageUpdater::checkForUpdates()
{
    newerVersion_.clear();
    const QDBusMessage create =
        QDBusMessage::createMethodCall(service, servicePath, service, QStringLiteral("CreateTransaction"));
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(create), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QDBusObjectPath> reply = *call;
        call->deleteLater();
        if (reply.isError())
            Q_EMIT answered(
                tr("PackageKit is not available here. Look for updates where you got Ledra from."));
        else
            ask(reply.value().path());
    });
}

void PackageUpdater::ask(const QString& transaction)
{
    QDBusConnection bus = QDBusConnection::systemBus();
    bus.connect(service, transaction, transactionInterface, QStringLiteral("Package"), this,
                SLOT(packageFound(uint, QString, QString)));
    bus.connect(service, transaction, transactionInterface, QStringLiteral("Finished"), this,
                SLOT(finished(uint, uint)));
    QDBusMessage list = QDBusMessage::createMethodCall(service, transaction, transactionInterface,
                                                       QStringLiteral("GetUpdates"));
    constexpr qulonglong noFilter = 0;
    list << noFilter;
    bus.asyncCall(list);
}

/// An id is "name;version;architecture;source".
void PackageUpdater::packageFound(uint, const QString& id, const QString&)
{
    if (id.section(u';', 0, 0) == packageName)
        newerVersion_ = id.section(u';', 1, 1);
}

void PackageUpdater::finished(uint exit, uint)
{
    constexpr uint success = 1;
    if (exit != success)
        Q_EMIT answered(tr("The package manager could not look for updates."));
    else if (newerVersion_.isEmpty())
        Q_EMIT answered(tr("Ledra is up to date."));
    else
        Q_EMIT answered(tr("Ledra %1 is available from your package manager.").arg(newerVersion_));
}

} // namespace ledra
