#include "plugins/plugin_requests.h"

#include "plugins/connector_script.h"

#include <array>

namespace ledra {

namespace {

constexpr int mostRequests = 500; ///< in one call
constexpr qsizetype largestBody = qsizetype{16} << 20;
constexpr qsizetype mostHeaders = 50;

constexpr std::array methods = {"GET", "HEAD", "POST", "PUT", "PATCH", "DELETE"};

/// What the connection itself needs is not for plugins to say.
constexpr std::array ownHeaders = {"host",    "content-length", "connection", "transfer-encoding",
                                   "upgrade", "cookie"};

bool isToken(const QByteArray& name)
{
    const auto isFine = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    };
    return !name.isEmpty() && name.size() <= 100 && std::ranges::all_of(name, isFine);
}

/// An order without an address and without a right to go anywhere; the error says what cannot be.
std::expected<HttpOrder, QString> orderFrom(const QJsonObject& detail)
{
    HttpOrder order;
    order.method = detail[QStringLiteral("method")].toString().toUpper().toLatin1();
    if (std::ranges::none_of(methods, [&](const char* method) { return order.method == method; }))
        return std::unexpected(QStringLiteral("fetch: an unknown method"));
    order.body = detail[QStringLiteral("body")].toString().toUtf8();
    const QJsonObject headers = detail[QStringLiteral("headers")].toObject();
    if (order.body.size() > largestBody || headers.size() > mostHeaders)
        return std::unexpected(QStringLiteral("fetch: the request is too large"));
    for (auto header = headers.begin(); header != headers.end(); ++header) {
        const QByteArray name = header.key().toLower().toUtf8();
        const QByteArray value = header->toVariant().toString().toUtf8();
        const bool isOurs = std::ranges::any_of(ownHeaders, [&](const char* own) { return name == own; });
        if (!isToken(name) || isOurs || value.contains('\n') || value.contains('\r') || value.contains('\0'))
            return std::unexpected(QStringLiteral("fetch: a header that cannot be sent"));
        order.headers.emplace_back(name, value);
    }
    return order;
}

QJsonObject replyObject(const HttpReply& reply)
{
    QJsonObject headers;
    for (const auto& [name, value] : reply.headers.asKeyValueRange())
        headers[name] = value;
    return {{QStringLiteral("status"), reply.status},
            {QStringLiteral("url"), reply.url.toString()},
            {QStringLiteral("headers"), headers},
            {QStringLiteral("body"), QString::fromUtf8(reply.body)}};
}

} // namespace

void PluginRequests::ask(const QString& kind, const QJsonObject& detail, const Answer& answer)
{
    if (++asked_ > mostRequests)
        answer(std::unexpected(QStringLiteral("too many requests in one call")));
    else if (kind == u"fetch" && !grants_.hosts.isEmpty())
        fetch(detail, answer);
    else if (kind == u"connector" && grants_.hasConnector)
        runConnector(detail, answer);
    else
        answer(std::unexpected(QStringLiteral("the plugin has no right to this")));
}

bool PluginRequests::mayVisit(const QUrl& url) const
{
    const bool isPlain = url.scheme() == u"http" && grants_.allowsPlainHttp;
    if ((url.scheme() != u"https" && !isPlain) || !url.userInfo().isEmpty())
        return false;
    const QString host = url.host(QUrl::FullyEncoded).toLower();
    const int usual = isPlain ? 80 : 443;
    const QString place = url.port(usual) == usual ? host : host + u':' + QString::number(url.port());
    return !host.isEmpty() && grants_.hosts.contains(place);
}

void PluginRequests::fetch(const QJsonObject& detail, const Answer& answer)
{
    auto order = orderFrom(detail);
    if (!order)
        return answer(std::unexpected(order.error()));
    order->url = QUrl(detail[QStringLiteral("url")].toString(), QUrl::StrictMode);
    order->mayVisit = [this](const QUrl& url) { return mayVisit(url); };
    http_.send(*order, [answer](const HttpClient::Result& reply) {
        answer(reply ? Result(replyObject(*reply)) : std::unexpected(reply.error()));
    });
}

void PluginRequests::runConnector(const QJsonObject& detail, const Answer& answer)
{
    const auto script = findConnector(grants_.connectorFolder);
    if (!script)
        return answer(std::unexpected(script.error()));
    callConnector(*script, detail, this, answer);
}

} // namespace ledra
