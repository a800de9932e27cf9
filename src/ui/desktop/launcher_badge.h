#pragma once

#include "app/ledra_app.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

namespace ledra {

/// The count on the program's icon in the dock: how many invoices of the active profile are overdue, since
/// those are what waits for the user. Told by the signal "Update" of "com.canonical.Unity.LauncherEntry" on
/// the session bus, which docks listen to.
class LauncherBadge : public QObject
{
    Q_OBJECT

public:
    explicit LauncherBadge(LedraApp& app, const QDBusConnection& bus = QDBusConnection::sessionBus());

    /// Takes the count off the icon.
    ~LauncherBadge() override;

    /// Counts anew and tells it, if it has changed. To be called when the setting has changed.
    void update();

private:
    void show(const QString& label);

    LedraApp& app_;
    QDBusConnection bus_;
    QTimer pause_; ///< changes come in numbers
    QTimer hour_;  ///< days pass
    std::optional<QString> shown_;
};

} // namespace ledra
