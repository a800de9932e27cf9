#pragma once

#include "einvoice/xml_document.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace ledra {

// Files that a Cross Industry Invoice carries inside its XML as supporting documents (EN 16931, BG-24): their
// names are BT-125-2, their contents Base64 in BT-125.

/// Their names, at most some hundreds, in the order of the document.
QStringList embeddedFileNames(const Element& root);

/// The content of one; nothing when there is none of that name, or when it is no Base64.
std::optional<QByteArray> embeddedFile(const Element& root, const QString& name);

} // namespace ledra
