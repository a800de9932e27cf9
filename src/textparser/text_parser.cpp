#include "textparser/text_parser.h"

#include "textparser/answer_reader.h"
#include "textparser/model_request.h"
#include "textparser/server_exchange.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace ledra {

namespace {

constexpr int statusOk = 200;
constexpr int statusLoading = 503; // what servers answer while a model loads
constexpr qsizetype longestBody = qsizetype{1024} * 1024;
constexpr auto listingLimit = std::chrono::seconds(10);
constexpr qsizetype shownShare = 32; ///< a beginning is read again when it has grown by this part of it

// Both are fixed texts.
QString notAvailable()
{
    return QStringLiteral("The on-device model isn’t available right now.");
}

QString notReady()
{
    return QStringLiteral(
        "The on-device model is still downloading or preparing. Try again in a little while.");
}

/// The address of one of the server's functions.
QUrl below(QUrl base, const char* function)
{
    base.setPath(base.path() + QString::fromLatin1(function));
    return base;
}

QString refusal(int status, const QByteArray& body)
{
    if (status == 0)
        return notAvailable();
    if (status == statusLoading)
        return notReady();
    return QStringLiteral("the model server answered with status %1: %2")
        .arg(status)
        .arg(serverMessage(body));
}

} // namespace

TextParser::TextParser(TextParserSetting setting, IdSource& ids)
    : setting_(std::move(setting)),
      ids_(ids),
      // Exchanges are replaced from within their own signals.
      exchange_(nullptr, [](ServerExchange* exchange) {
          exchange->stop();
          exchange->deleteLater();
      })
{}

TextParser::~TextParser() = default;

ServerExchange& TextParser::newExchange(std::chrono::milliseconds limit)
{
    exchange_.reset(new ServerExchange(limit, this));
    body_.clear();
    return *exchange_;
}

void TextParser::cancel()
{
    exchange_.reset();
}

void TextParser::availability(const AvailabilityCallback& callback)
{
    listModels([callback](const Listing& model) {
        callback({model ? std::nullopt : std::optional(model.error())});
    });
}

void TextParser::listModels(const std::function<void(const Listing&)>& then)
{
    listed_ = then;
    const std::expected<QUrl, QString> base = localEndpoint(setting_.endpoint);
    const auto fail = [this] { endListing(std::unexpected(notAvailable())); };
    if (!base)
        return later(fail);
    ServerExchange& exchange =
        newExchange(std::min<std::chrono::milliseconds>(setting_.timeLimit, listingLimit));
    connect(&exchange, &ServerExchange::arrived, this, [this, fail](const QByteArray& bytes) {
        body_ += bytes;
        if (body_.size() > longestBody)
            fail();
    });
    connect(&exchange, &ServerExchange::timedOut, this, fail);
    connect(&exchange, &ServerExchange::ended, this,
            [this] { endListing(chosenModel(body_, exchange_->status())); });
    exchange.get(below(*base, "/models"));
}

void TextParser::endListing(const Listing& listing)
{
    exchange_.reset();
    std::exchange(listed_, {})(listing);
}

/// All answers come after the question has returned, also those that are known at once.
void TextParser::later(const std::function<void()>& answer)
{
    known_ = answer;
    ServerExchange* awaited = &newExchange(setting_.timeLimit);
    QTimer::singleShot(0, awaited, [this, awaited] {
        if (exchange_.get() == awaited) // else it has been cancelled
            std::exchange(known_, {})();
    });
}

TextParser::Listing TextParser::chosenModel(const QByteArray& list, int status) const
{
    const QJsonDocument document = QJsonDocument::fromJson(list);
    if (status == statusLoading)
        return std::unexpected(notReady());
    if (status != statusOk || !document.isObject())
        return std::unexpected(notAvailable());
    const QJsonArray models = document.object().value(QStringLiteral("data")).toArray();
    for (const QJsonValue model : models) {
        QString id = model.toObject().value(QStringLiteral("id")).toString();
        if (!id.isEmpty() && (setting_.model.isEmpty() || setting_.model == id))
            return id;
    }
    return std::unexpected(notReady());
}

void TextParser::extract(const QString& text)
{
    const std::expected<QUrl, QString> base = localEndpoint(setting_.endpoint);
    if (!base)
        return later(
            [this, problem = setting_.endpoint + u' ' + base.error()] { finish(std::unexpected(problem)); });
    if (text.size() > longestExtractedText)
        return later([this] {
            finish(std::unexpected(
                QStringLiteral("the text is longer than %1 characters").arg(longestExtractedText)));
        });
    listModels([this, base, text](const Listing& model) {
        if (model)
            ask(*base, *model, text);
        else
            finish(std::unexpected(model.error()));
    });
}

void TextParser::ask(const QUrl& base, const QString& model, const QString& text)
{
    stream_ = {};
    partial_ = {ids_.newId(), ids_.newId(), {}, {}};
    shown_ = 0;
    ServerExchange& exchange = newExchange(setting_.timeLimit);
    connect(&exchange, &ServerExchange::arrived, this, &TextParser::takeAnswer);
    connect(&exchange, &ServerExchange::ended, this, &TextParser::finishAnswer);
    connect(&exchange, &ServerExchange::timedOut, this, [this] { finish(std::unexpected(notAvailable())); });
    exchange.post(below(base, "/chat/completions"), extractionRequest(model, text));
}

void TextParser::takeAnswer(const QByteArray& bytes)
{
    if (exchange_->status() != statusOk) {
        body_ += bytes.left(longestBody - body_.size());
        return;
    }
    const qint64 before = stream_.events();
    if (const auto fed = stream_.feed(bytes); !fed)
        return finish(std::unexpected(fed.error()));
    if (stream_.isComplete()) // some servers keep the connection open
        return finish(readAnswer(stream_.answer()));
    if (stream_.events() == before)
        return;
    exchange_->noteProgress();
    showBeginning();
}

void TextParser::showBeginning()
{
    const qsizetype size = stream_.answer().size();
    if (size <= shown_ + shown_ / shownShare)
        return;
    shown_ = size;
    std::optional<ExtractedInvoice> fields = readBeginning(stream_.answer());
    if (!fields || *fields == partial_.fields)
        return;
    partial_.fields = std::move(*fields);
    while (partial_.fields.items && partial_.itemIds.size() < partial_.fields.items->size())
        partial_.itemIds.push_back(ids_.newId());
    Q_EMIT arrived(partial_);
}

void TextParser::finishAnswer()
{
    const int status = exchange_->status();
    if (status != statusOk)
        finish(std::unexpected(refusal(status, body_)));
    else if (stream_.events() == 0 && exchange_->isWhole())
        finish(std::unexpected(QStringLiteral("the model server did not answer with a stream of events")));
    else
        finish(std::unexpected(QStringLiteral("the model’s answer was cut off")));
}

void TextParser::finish(const Extraction& extraction)
{
    exchange_.reset();
    Q_EMIT finished(extraction);
}

} // namespace ledra
