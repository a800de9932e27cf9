#pragma once

#include "textparser/extracted_invoice.h"

#include <expected>

namespace ledra {

/// Limits of an answer; what passes them comes from a model that has lost its way.
inline constexpr qsizetype longestAnswer = qsizetype{1024} * 1024; ///< UTF-8 bytes
inline constexpr qsizetype longestLine = 500;                      ///< characters of a name, a code …
inline constexpr qsizetype longestParagraph = 10'000;
inline constexpr qsizetype mostItems = 1'000;
inline constexpr double largestNumber = 1e12; ///< of either sign

/// Reads a model's answer; what stands around the JSON is cut away. Control characters are removed; null and
/// texts of nothing but blanks count as absent. The error is one line that names the field.
[[nodiscard]] std::expected<ExtractedInvoice, QString> readAnswer(const QString& answer);

/// What an unfinished answer holds so far; nothing when that cannot be shown.
[[nodiscard]] std::optional<ExtractedInvoice> readBeginning(const QString& answer);

/// A text without control characters, in one line or several; nothing when nothing else is left.
std::optional<QString> cleanText(const QString& text, TextLength length);

} // namespace ledra
