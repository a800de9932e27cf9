#pragma once

#include "app/ledra_app.h"

#include <QDBusPendingCallWatcher>
#include <QObject>

namespace ledra {

/// Asks the system's package manager for a newer Ledra (org.freedesktop.PackageKit on the system bus). It
/// installs nothing: that is up to the system's own tools.
class PackageUpdater final : public QObject, public UpdaterController
{
    Q_OBJECT

public:
    void start() override {} ///< the system itself looks for updates from time to time
    void checkForUpdates() override;

Q_SIGNALS:
    void answered(const QString& line);

private Q_SLOTS:
    void packageFound(uint kind, const QString& id, const QString& summary);
    void finished(uint exit, uint milliseconds);

private:
    void ask(const QString& transaction);

    QString newerVersion_;
};

} // namespace ledra
