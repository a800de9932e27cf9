#include "textparser/local_endpoint.h"

#include <QHostAddress>

namespace ledra {

namespace {

bool isThisComputer(const QHostAddress& address)
{
    constexpr int loopbackPrefix = 8;
    return address == QHostAddress(QHostAddress::LocalHostIPv6) ||
           (address.protocol() == QAbstractSocket::IPv4Protocol &&
            address.isInSubnet(QHostAddress(QHostAddress::LocalHost), loopbackPrefix));
}

} // namespace

std::expected<QUrl, QString> localEndpoint(const QString& text)
{
    QUrl url(text, QUrl::StrictMode);
    const bool isPlain = url.isValid() && url.scheme() == u"http" && url.userInfo().isEmpty() &&
                         !url.hasQuery() && !url.hasFragment();
    if (!isPlain)
        return std::unexpected(QStringLiteral("is no address such as ") +
                               QString::fromLatin1(defaultEndpoint));
    if (url.host() == u"localhost")
        url.setHost(QStringLiteral("127.0.0.1"));
    if (!isThisComputer(QHostAddress(url.host())))
        return std::unexpected(QStringLiteral("is not on this computer"));
    QString path = url.path();
    while (path.endsWith(u'/'))
        path.chop(1);
    url.setPath(path);
    return url;
}

} // namespace ledra
