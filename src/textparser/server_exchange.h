#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

namespace ledra {

/// One request to a model server and what comes back. It goes to the given address and nowhere else: no
/// proxy, no redirect, no cookie. Exactly one of ended() and timedOut() comes, unless it is deleted before.
class ServerExchange : public QObject
{
    Q_OBJECT

public:
    ServerExchange(std::chrono::milliseconds limit, QObject* parent);
    ~ServerExchange() override;

    void get(const QUrl& url);
    void post(const QUrl& url, const QByteArray& json);

    /// Breaks it off; nothing more is heard of it.
    void stop();

    /// Starts the time anew, since something has come.
    void noteProgress() { timer_.start(); }

    /// The HTTP status; 0 when there was no answer.
    int status() const;

    /// Whether the answer has come to its end.
    bool isWhole() const;

Q_SIGNALS:
    void arrived(const QByteArray& bytes); ///< the next part of the body
    void ended();                          ///< the server has answered, or the connection has failed
    void timedOut();                       ///< nothing came for too long

private:
    void follow(QNetworkReply* reply);
    void passOn();
    void closeReply();

    QNetworkAccessManager network_;
    QTimer timer_;
    std::unique_ptr<QNetworkReply> reply_;
};

} // namespace ledra
