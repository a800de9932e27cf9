#pragma once

#include <QByteArray>
#include <QHash>
#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QUrl>

#include <expected>
#include <functional>
#include <vector>

namespace ledra {

/// One request over the network with its bounds.
struct HttpOrder
{
    QUrl url;
    std::function<bool(const QUrl&)> mayVisit; ///< asked for the address and for every redirection
    QByteArray method = "GET";
    std::vector<std::pair<QByteArray, QByteArray>> headers = {};
    QByteArray body = {};
    qint64 mostBytes = qint64{16} << 20;
    int seconds = 30; ///< for all of it
};

struct HttpReply
{
    int status = 0;
    QUrl url;                        ///< after redirections
    QHash<QString, QString> headers; ///< names in lower case
    QByteArray body;
};

/// Sends requests, without cookies, caches or passwords of anybody's, and ends those under way when it goes.
class HttpClient : public QObject
{
    Q_OBJECT

public:
    ~HttpClient() override;

    using Result = std::expected<HttpReply, QString>; ///< the error is one line
    using Answer = std::function<void(const Result&)>;

    /// The answer always comes later, unless the client goes first.
    void send(const HttpOrder& order, Answer answer);

private:
    QNetworkAccessManager network_;
};

} // namespace ledra
