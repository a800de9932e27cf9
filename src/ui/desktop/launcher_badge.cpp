#include "ui/desktop/launcher_badge.h"

#include "ui/desktop/application_bus.h"

#include <QDBusMessage>

namespace ledra {

LauncherBadge::LauncherBadge(LedraApp& app, const QDBusConnection& bus) : app_(app), bus_(bus)
{
    using namespace std::chrono_literals;
    pause_.setSingleShot(true);
    pause_.setInterval(500ms);
    hour_.setInterval(1h);
    hour_.start();
    connect(&app.invoiceManager(), &InvoiceManager::refreshed, &pause_, qOverload<>(&QTimer::start));
    connect(&app.invoiceManager(), &InvoiceManager::edited, &pause_, qOverload<>(&QTimer::start));
    connect(&pause_, &QTimer::timeout, this, &LauncherBadge::update);
    connect(&hour_, &QTimer::timeout, this, &LauncherBadge::update);
    pause_.start();
}

LauncherBadge::~LauncherBadge()
{
    show({});
}

void LauncherBadge::update()
{
    const InvoiceFilter overdue{.overdueOnly = true, .leavesOutQuotes = true};
    show(app_.badgeLabel(static_cast<int>(app_.filterManager().passing(overdue).size())));
}

void LauncherBadge::show(const QString& label)
{
    if (shown_.value_or(QString()) == label)
        return;
    shown_ = label;
    QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/de/ledra/Ledra"),
                                                     QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                                     QStringLiteral("Update"));
    signal << QStringLiteral("application://%1.desktop").arg(QLatin1String(applicationId))
           << QVariantMap{{QStringLiteral("count"), label.toLongLong()},
                          {QStringLiteral("count-visible"), !label.isEmpty()}};
    bus_.send(signal);
}

} // namespace ledra
