#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QObject>
#include <QUrl>
#include <QVariantMap>

namespace ledra {

/// The program's name on the desktop: that of its .desktop file, of its icon and on the session bus.
inline constexpr char applicationId[] = "de.ledra.Ledra";

/// The program on the session bus, as the desktop entry standard's interface "org.freedesktop.Application"
/// has it: the first instance owns the name, each later one hands over what it was started with and ends.
/// Without a session bus every instance stays for itself.
class ApplicationBus : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationBus(const QDBusConnection& bus = QDBusConnection::sessionBus());

    /// Takes the name. False when another instance has it.
    bool becomeFirst();

    /// Asks the first instance to open files and links, or just to come to the front. False when it does not
    /// answer.
    bool handOver(const QList<QUrl>& urls);

Q_SIGNALS:
    void activated();
    void opened(const QList<QUrl>& urls);
    void actionWanted(const QString& name); ///< one of the .desktop file's

private:
    class Interface;

    QDBusConnection bus_;
};

/// What is called from the bus.
class ApplicationBus::Interface : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit Interface(ApplicationBus& bus) : QDBusAbstractAdaptor(&bus), bus_(bus) {}

public Q_SLOTS:
    // The names are those of the interface.
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& actionName, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    ApplicationBus& bus_;
};

} // namespace ledra
