#pragma once

#include <QByteArray>

#include <optional>
#include <string>

namespace ledra {

/// The text of an XML file as UTF-8, by its byte-order mark, else by its first bytes, else by the encoding
/// that its declaration names (XML 1.0, appendix F). Nothing when the encoding is unknown or the bytes do not
/// fit it.
std::optional<std::string> decodeXml(const QByteArray& file);

} // namespace ledra
