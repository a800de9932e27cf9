#pragma once

#include "model/clock.h"
#include "textparser/completion_stream.h"
#include "textparser/extracted_invoice.h"
#include "textparser/local_endpoint.h"

#include <QObject>
#include <QUrl>

#include <chrono>
#include <expected>
#include <functional>
#include <memory>

namespace ledra {

class ServerExchange;

/// Whether texts can be extracted; if not, the message to show.
struct TextParserAvailability
{
    std::optional<QString> unavailable;

    bool isAvailable() const { return !unavailable; }
    friend bool operator==(const TextParserAvailability&, const TextParserAvailability&) = default;
};

/// Which model is asked.
struct TextParserSetting
{
    QString endpoint = QString::fromLatin1(defaultEndpoint);       ///< as localEndpoint() takes it
    QString model = {};                                            ///< empty: the first that the server has
    std::chrono::milliseconds timeLimit = std::chrono::minutes(2); ///< for which nothing may come
};

inline constexpr qsizetype longestExtractedText = 100'000; ///< characters of a text to be extracted

/// Turns free text into the fields of an invoice, with a language model that runs on this computer. Linux has
/// no such model of its own; what stands for it is a model server of the user's choice with the interface
/// "/v1/models" and "/v1/chat/completions", which most servers speak.
///
/// One thing at a time: a new question or cancel() ends the one before, of which nothing more is heard.
class TextParser : public QObject
{
    Q_OBJECT

public:
    using Extraction = std::expected<ExtractedInvoice, QString>;
    using AvailabilityCallback = std::function<void(const TextParserAvailability&)>;

    TextParser(TextParserSetting setting, IdSource& ids);
    ~TextParser() override;

    /// Asks the server for its models.
    void availability(const AvailabilityCallback& callback);

    /// Asks the model. arrived() comes while its answer does, finished() once at its end; the error is one
    /// line to show.
    void extract(const QString& text);
    void cancel();

Q_SIGNALS:
    void arrived(const ledra::PartialInvoice& partial);
    void finished(const ledra::TextParser::Extraction& extraction);

private:
    using Listing = std::expected<QString, QString>; ///< the model to ask, or why there is none

    void listModels(const std::function<void(const Listing&)>& then);
    void endListing(const Listing& listing);
    void later(const std::function<void()>& answer);
    Listing chosenModel(const QByteArray& list, int status) const;
    void ask(const QUrl& base, const QString& model, const QString& text);
    void takeAnswer(const QByteArray& bytes);
    void showBeginning();
    void finishAnswer();
    void finish(const Extraction& extraction);
    ServerExchange& newExchange(std::chrono::milliseconds limit);

    TextParserSetting setting_;
    IdSource& ids_;
    std::unique_ptr<ServerExchange, void (*)(ServerExchange*)> exchange_;
    std::function<void(const Listing&)> listed_; ///< what to do with the list of models
    std::function<void()> known_;                ///< an answer that needs no server
    CompletionStream stream_;
    QByteArray body_; ///< of an answer that is no stream of events
    PartialInvoice partial_;
    qsizetype shown_ = 0; ///< how much of the answer the last arrived() was about
};

} // namespace ledra
