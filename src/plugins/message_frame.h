#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <expected>
#include <optional>

// What the program and its plugin runner say to each other over two pipes: JSON objects, each behind its
// length in bytes as a 32-bit little-endian number.
namespace ledra {

/// A longer message comes from nobody honest.
inline constexpr quint32 largestMessage = 96U << 20;

inline constexpr qsizetype frameHeader = sizeof(quint32);

inline QByteArray framed(const QJsonObject& message)
{
    const QByteArray body = QJsonDocument(message).toJson(QJsonDocument::Compact);
    QByteArray frame(frameHeader, Qt::Uninitialized);
    qToLittleEndian(static_cast<quint32>(body.size()), frame.data());
    return frame + body;
}

/// The length that a header tells.
inline quint32 bodySize(const char* header)
{
    return qFromLittleEndian<quint32>(header);
}

enum class FrameFault { tooLong, noObject };

/// Takes the first whole message out of what has arrived; nothing while it is not all there.
inline std::expected<std::optional<QJsonObject>, FrameFault> takeMessage(QByteArray& arrived)
{
    if (arrived.size() < frameHeader)
        return std::nullopt;
    const quint32 size = bodySize(arrived.constData());
    if (size > largestMessage)
        return std::unexpected(FrameFault::tooLong);
    const qsizetype whole = frameHeader + static_cast<qsizetype>(size);
    if (arrived.size() < whole)
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(arrived.sliced(frameHeader, qsizetype(size)));
    arrived.remove(0, whole);
    if (!document.isObject())
        return std::unexpected(FrameFault::noObject);
    return document.object();
}

} // namespace ledra
