#pragma once

#include <string>
#include <string_view>

namespace ledra {

/// A text as XML content: "&", "<" and ">" become entities. Characters that XML 1.0 cannot hold, and other
/// control characters, are left out; a carriage return becomes a reference, since a reader would take it for
/// a line break.
std::string xmlEscaped(std::string_view text);

/// As above, for a value between double quotes; line breaks and tabs become references as well.
std::string xmlAttributeEscaped(std::string_view text);

/// Appends instead of returning.
void appendEscaped(std::string& out, std::string_view text);
void appendAttributeEscaped(std::string& out, std::string_view text);

/// Whether a text is nothing but white space and line breaks, those of Unicode included, and characters that
/// appendEscaped() leaves out.
bool isBlank(std::string_view text);

/// Without the white space and line breaks at both ends.
std::string_view trimmed(std::string_view text);

} // namespace ledra
