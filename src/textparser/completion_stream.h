#pragma once

#include <QByteArray>
#include <QString>

#include <expected>
#include <optional>

namespace ledra {

/// Puts a model's streamed answer together. It comes as server-sent events (WHATWG HTML, 9.2) in pieces of
/// any size, each event a JSON object with the next letters of the answer; "[DONE]" is the last one.
class CompletionStream
{
public:
    /// Takes in the next bytes. The error is one line; after it the stream is of no use.
    [[nodiscard]] std::expected<void, QString> feed(const QByteArray& bytes);

    const QString& answer() const { return answer_; }

    /// How many events have come; what says that the model is at work.
    qint64 events() const { return events_; }
    bool isComplete() const { return isComplete_; }

private:
    std::expected<void, QString> takeLine(QByteArray line);
    std::expected<void, QString> takeEvent(const QByteArray& data);

    QByteArray rest_; ///< of a line that has not ended yet
    std::optional<QByteArray> data_;
    QString answer_;
    qsizetype answerBytes_ = 0;
    qint64 events_ = 0;
    qint64 received_ = 0;
    bool isComplete_ = false;
};

/// What a server says of an error in its JSON ({"error":{"message":…}}), cut to a line.
QString serverMessage(const QByteArray& json);

} // namespace ledra
