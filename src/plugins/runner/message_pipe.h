#pragma once

#include <QJsonObject>

#include <deque>
#include <optional>

namespace ledra {

/// The runner's end of its talk with the program: the standard input and output, read and written until all
/// is there. The process ends when the program has gone.
class MessagePipe
{
public:
    static void send(const QJsonObject& message);

    /// Waits for the next message.
    QJsonObject receive();

    /// Waits for the next message of a type; others wait for receive().
    QJsonObject receive(const QString& type);

private:
    static QJsonObject read();

    std::deque<QJsonObject> waiting_;
};

} // namespace ledra
