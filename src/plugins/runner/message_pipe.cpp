#include "plugins/runner/message_pipe.h"

#include "plugins/message_frame.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace ledra {

namespace {

/// Moves all bytes by a system call that may move a part of them.
template <class Transfer, class Byte>
void transferAll(Transfer transfer, int descriptor, Byte* bytes, qsizetype count)
{
    while (count > 0) {
        const ssize_t moved = transfer(descriptor, bytes, static_cast<std::size_t>(count));
        if (moved < 0 && errno == EINTR)
            continue;
        if (moved <= 0)
            std::_Exit(EXIT_SUCCESS); // nobody is there any more
        bytes += moved;
        count -= moved;
    }
}

} // namespace

void MessagePipe::send(const QJsonObject& message)
{
    const QByteArray frame = framed(message);
    transferAll(::write, STDOUT_FILENO, frame.constData(), frame.size());
}

QJsonObject MessagePipe::read()
{
    QByteArray frame(frameHeader, Qt::Uninitialized);
    transferAll(::read, STDIN_FILENO, frame.data(), frameHeader);
    const auto size = static_cast<qsizetype>(bodySize(frame.constData()));
    frame.resize(frameHeader + size);
    transferAll(::read, STDIN_FILENO, frame.data() + frameHeader, size);
    const std::optional<QJsonObject> message = takeMessage(frame).value_or(std::nullopt);
    if (!message)
        std::_Exit(EXIT_FAILURE); // the program says no such things
    return *message;
}

QJsonObject MessagePipe::receive()
{
    if (waiting_.empty())
        return read();
    QJsonObject message = waiting_.front();
    waiting_.pop_front();
    return message;
}

QJsonObject MessagePipe::receive(const QString& type)
{
    for (;;) {
        QJsonObject message = read();
        if (message[QStringLiteral("type")].toString() == type)
            return message;
        waiting_.push_back(std::move(message));
    }
}

} // namespace ledra
