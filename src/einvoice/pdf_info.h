#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace ledra {

/// What an incremental update needs to know of the PDF that it is appended to (ISO 32000-1, 7.5.5 and 7.5.6).
/// The PDF must have a classical cross-reference table and a trailer.
struct PDFInfo
{
    std::int64_t rootObj = 0;    ///< object number of the document catalog
    std::int64_t size = 0;       ///< the next free object number
    std::int64_t xrefOffset = 0; ///< in bytes, of the last cross-reference section
    QByteArray catalogBody;      ///< the inside of the catalog's dictionary

    friend bool operator==(const PDFInfo&, const PDFInfo&) = default;
};

/// Reads it from the end of a PDF; nothing when any of it is missing.
std::optional<PDFInfo> readPdfInfo(const QByteArray& pdf);

} // namespace ledra
