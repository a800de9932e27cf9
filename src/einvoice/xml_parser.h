#pragma once

#include "einvoice/xml_document.h"

#include <cstddef>

namespace ledra {

// What a document may have at most. The largest e-invoices have some ten thousand lines of about fifty
// elements and are twelve levels deep; a tree within these limits takes less than half a gigabyte.
inline constexpr std::size_t largestXml = std::size_t{64} * 1024 * 1024; ///< bytes
inline constexpr int deepestXml = 128;                                   ///< levels
inline constexpr std::size_t mostXmlElements = 1'000'000;
inline constexpr std::size_t mostXmlAttributes = 64; ///< of one element

/// Builds the tree of a document without a declaration, by the events of a parser that does not resolve
/// namespaces. Nothing when the text is not well-formed, has a document type, or goes beyond a limit.
std::unique_ptr<Element> parseElements(std::string_view text);

} // namespace ledra
