#include "plugins/http_client.h"

#include "plugins/plugin.h"

#include <QNetworkReply>
#include <QTimer>

namespace ledra {

namespace {

constexpr int mostRedirections = 5;

/// A request with its redirections; a child of the client.
class Exchange : public QObject
{
public:
    Exchange(QNetworkAccessManager& network, HttpOrder order, HttpClient::Answer answer, QObject* parent)
        : QObject(parent), network_(network), order_(std::move(order)), answer_(std::move(answer))
    {
        limit_.setSingleShot(true);
        connect(&limit_, &QTimer::timeout, this, [this] { end(failure("no answer in time")); });
        limit_.start(order_.seconds * 1000);
        QMetaObject::invokeMethod(this, [this] { visit(); }, Qt::QueuedConnection);
    }
    ~Exchange() override { drop(); }

private:
    std::unexpected<QString> failure(const char* reason) const
    {
        return std::unexpected(order_.url.host() + QStringLiteral(": ") + QString::fromLatin1(reason));
    }

    void visit();
    void collect();
    void finish();
    void follow(const QUrl& target, int status);
    void drop();
    void end(const HttpClient::Result& result);

    QNetworkAccessManager& network_;
    HttpOrder order_;
    HttpClient::Answer answer_;
    QTimer limit_;
    QNetworkReply* reply_ = nullptr; ///< the network's; deleted by drop()
    QByteArray body_;
    int redirections_ = 0;
};

void Exchange::visit()
{
    if (!order_.url.isValid() || !order_.mayVisit(order_.url))
        return end(failure("this address is not allowed"));
    QNetworkRequest request(order_.url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto manual :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(manual, QNetworkRequest::Manual);
    request.setRawHeader("User-Agent", "Ledra");
    for (const auto& [name, value] : order_.headers)
        request.setRawHeader(name, value);
    reply_ = network_.sendCustomRequest(request, order_.method, order_.body);
    connect(reply_, &QNetworkReply::readyRead, this, &Exchange::collect);
    connect(reply_, &QNetworkReply::finished, this, &Exchange::finish);
}

void Exchange::collect()
{
    body_ += reply_->read(order_.mostBytes - body_.size() + 1);
    if (body_.size() > order_.mostBytes)
        end(failure("the answer is too large"));
}

void Exchange::finish()
{
    collect();
    if (!reply_) // it was too large
        return;
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl target = reply_->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (status == 0)
        return end(std::unexpected(order_.url.host() + QStringLiteral(": ") + reply_->errorString()));
    if (!target.isEmpty())
        return follow(order_.url.resolved(target), status);
    HttpReply reply{status, order_.url, {}, body_};
    for (const auto& [name, value] : reply_->rawHeaderPairs())
        reply.headers[QString::fromLatin1(name).toLower()] = QString::fromUtf8(value);
    end(reply);
}

void Exchange::follow(const QUrl& target, int status)
{
    constexpr int keepsMethod = 307; // and 308: RFC 9110, 15.4
    if (++redirections_ > mostRedirections)
        return end(failure("too many redirections"));
    if (status < keepsMethod && order_.method != "HEAD") {
        order_.method = "GET";
        order_.body.clear();
    }
    if (target.authority() != order_.url.authority())
        order_.headers.clear(); // keys for one host are none of another's business
    order_.url = target;
    drop();
    visit();
}

void Exchange::drop()
{
    body_.clear();
    if (!reply_)
        return;
    disconnect(reply_, nullptr, this, nullptr);
    reply_->abort();
    reply_->deleteLater();
    reply_ = nullptr;
}

void Exchange::end(const HttpClient::Result& result)
{
    drop();
    limit_.stop();
    deleteLater();
    std::exchange(answer_, [](const HttpClient::Result&) {})(result);
}

} // namespace

/// The exchanges go before the network that they use.
HttpClient::~HttpClient()
{
    qDeleteAll(findChildren<QObject*>(QString(), Qt::FindDirectChildrenOnly));
}

void HttpClient::send(const HttpOrder& order, Answer answer)
{
    new Exchange(network_, order, std::move(answer), this); // deletes itself
}

} // namespace ledra
