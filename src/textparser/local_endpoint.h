#pragma once

#include <QString>
#include <QUrl>

#include <expected>

namespace ledra {

/// Where model servers usually listen.
inline constexpr const char* defaultEndpoint = "http://127.0.0.1:11434/v1";

/// The base address of a model server on this computer. Texts that are to be extracted hold what customers
/// write, so that every other host is refused: only 127.0.0.0/8, ::1 and "localhost" are taken, and no name
/// is ever looked up ("localhost" becomes 127.0.0.1). The error is one line.
[[nodiscard]] std::expected<QUrl, QString> localEndpoint(const QString& text);

} // namespace ledra
