#include "textparser/completion_stream.h"

#include "textparser/answer_reader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ledra {

namespace {

// The answer is wrapped letter by letter, so that all of it is many times as long as what it says.
constexpr qint64 longestStream = qint64{256} * 1024 * 1024;
constexpr qsizetype longestEvent = 8 * longestAnswer;
constexpr qsizetype longestMessage = 200;

std::unexpected<QString> tooLong()
{
    return std::unexpected(QStringLiteral("the model’s answer is longer than 1 MiB"));
}

std::unexpected<QString> cutOff()
{
    return std::unexpected(QStringLiteral("the model’s answer was cut off because it got too long"));
}

QJsonObject firstChoice(const QJsonObject& event)
{
    return event.value(QStringLiteral("choices")).toArray().first().toObject();
}

} // namespace

std::expected<void, QString> CompletionStream::feed(const QByteArray& bytes)
{
    received_ += bytes.size();
    rest_ += bytes;
    qsizetype start = 0;
    for (qsizetype end = rest_.indexOf('\n'); end >= 0 && !isComplete_; end = rest_.indexOf('\n', start)) {
        if (const auto taken = takeLine(rest_.mid(start, end - start)); !taken)
            return taken;
        start = end + 1;
    }
    rest_.remove(0, start);
    if (rest_.size() + data_.value_or(QByteArray()).size() > longestEvent || received_ > longestStream)
        return tooLong();
    return {};
}

std::expected<void, QString> CompletionStream::takeLine(QByteArray line)
{
    if (line.endsWith('\r'))
        line.chop(1);
    if (line.isEmpty() && data_) {
        const QByteArray data = *data_;
        data_.reset();
        return takeEvent(data);
    }
    if (!line.startsWith("data:")) // a comment that keeps the connection open, or a field of no interest
        return {};
    const QByteArray data = line.mid(line.startsWith("data: ") ? 6 : 5);
    data_ = data_ ? *data_ + '\n' + data : data;
    return {};
}

std::expected<void, QString> CompletionStream::takeEvent(const QByteArray& data)
{
    ++events_;
    if (data.trimmed() == "[DONE]") {
        isComplete_ = true;
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson(data);
    if (!document.isObject())
        return std::unexpected(QStringLiteral("the model server sent something that is not valid JSON"));
    const QJsonObject event = document.object();
    if (event.contains(QStringLiteral("error")))
        return std::unexpected(QStringLiteral("the model server reports an error: ") + serverMessage(data));
    const QJsonObject choice = firstChoice(event);
    const QString letters =
        choice.value(QStringLiteral("delta")).toObject().value(QStringLiteral("content")).toString();
    answer_ += letters;
    answerBytes_ += letters.toUtf8().size();
    if (answerBytes_ > longestAnswer)
        return tooLong();
    const QString reason = choice.value(QStringLiteral("finish_reason")).toString();
    if (reason == u"length")
        return cutOff();
    isComplete_ = !reason.isEmpty();
    return {};
}

QString serverMessage(const QByteArray& json)
{
    const QJsonValue error = QJsonDocument::fromJson(json).object().value(QStringLiteral("error"));
    const QString text =
        error.isObject() ? error.toObject().value(QStringLiteral("message")).toString() : error.toString();
    return cleanText(text.left(longestMessage), TextLength::line).value_or(QStringLiteral("no reason given"));
}

} // namespace ledra
