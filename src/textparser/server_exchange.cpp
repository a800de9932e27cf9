#include "textparser/server_exchange.h"

#include <QNetworkProxy>

namespace ledra {

namespace {

QNetworkRequest requestFor(const QUrl& url)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setRawHeader("Accept-Encoding", "identity"); // nothing that has to be unpacked
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Ledra"));
    return request;
}

} // namespace

ServerExchange::ServerExchange(std::chrono::milliseconds limit, QObject* parent) : QObject(parent)
{
    network_.setProxy(QNetworkProxy::NoProxy);
    timer_.setSingleShot(true);
    timer_.setInterval(limit);
    connect(&timer_, &QTimer::timeout, this, [this] {
        closeReply();
        Q_EMIT timedOut();
    });
}

ServerExchange::~ServerExchange()
{
    closeReply();
}

void ServerExchange::stop()
{
    disconnect();
    closeReply();
}

void ServerExchange::get(const QUrl& url)
{
    follow(network_.get(requestFor(url)));
}

void ServerExchange::post(const QUrl& url, const QByteArray& json)
{
    QNetworkRequest request = requestFor(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    follow(network_.post(request, json));
}

void ServerExchange::follow(QNetworkReply* reply)
{
    reply_.reset(reply);
    timer_.start();
    connect(reply, &QNetworkReply::readyRead, this, &ServerExchange::passOn);
    connect(reply, &QNetworkReply::finished, this, [this] {
        timer_.stop();
        if (reply_->bytesAvailable() > 0)
            passOn();
        Q_EMIT ended();
    });
}

void ServerExchange::passOn()
{
    Q_EMIT arrived(reply_->readAll());
}

void ServerExchange::closeReply()
{
    timer_.stop();
    if (!reply_)
        return;
    reply_->disconnect(this);
    reply_->abort();
}

int ServerExchange::status() const
{
    return reply_ ? reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() : 0;
}

bool ServerExchange::isWhole() const
{
    return reply_ && reply_->error() == QNetworkReply::NoError;
}

} // namespace ledra
