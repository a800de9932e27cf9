#include "ui/desktop/application_bus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace ledra {

namespace {

// The name with slashes, as the interface asks.
constexpr char objectPath[] = "/de/ledra/Ledra";
constexpr char tokenKey[] = "activation-token";
constexpr char tokenVariable[] = "XDG_ACTIVATION_TOKEN";

/// The compositor lets a window come to the front for whom it has given a token to; Qt reads it from there.
void keepToken(const QVariantMap& platformData)
{
    const QByteArray token = platformData.value(QLatin1String(tokenKey)).toString().toUtf8();
    if (!token.isEmpty())
        qputenv(tokenVariable, token);
}

} // namespace

ApplicationBus::ApplicationBus(const QDBusConnection& bus) : bus_(bus)
{
    new Interface(*this);
}

bool ApplicationBus::becomeFirst()
{
    if (!bus_.isConnected())
        return true;
    // Before the name, since calls may come as soon as it is there.
    bus_.registerObject(QLatin1String(objectPath), this);
    const auto reply = bus_.interface()->registerService(QLatin1String(applicationId));
    return !reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool ApplicationBus::handOver(const QList<QUrl>& urls)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(QLatin1String(applicationId), QLatin1String(objectPath),
                                       QStringLiteral("org.freedesktop.Application"),
                                       urls.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    QVariantMap platformData;
    if (qEnvironmentVariableIsSet(tokenVariable))
        platformData.insert(QLatin1String(tokenKey), qEnvironmentVariable(tokenVariable));
    if (!urls.isEmpty())
        call << QUrl::toStringList(urls, QUrl::FullyEncoded);
    call << platformData;
    // The first instance may still be reading its records.
    constexpr int milliseconds = 15'000;
    const QDBusMessage answer = bus_.call(call, QDBus::Block, milliseconds);
    return answer.type() == QDBusMessage::ReplyMessage;
}

void ApplicationBus::Interface::Activate(const QVariantMap& platformData)
{
    keepToken(platformData);
    Q_EMIT bus_.activated();
}

void ApplicationBus::Interface::Open(const QStringList& uris, const QVariantMap& platformData)
{
    keepToken(platformData);
    Q_EMIT bus_.activated();
    Q_EMIT bus_.opened(QUrl::fromStringList(uris));
}

void ApplicationBus::Interface::ActivateAction(const QString& actionName, const QVariantList&,
                                               const QVariantMap& platformData)
{
    keepToken(platformData);
    Q_EMIT bus_.activated();
    Q_EMIT bus_.actionWanted(actionName);
}

} // namespace ledra
