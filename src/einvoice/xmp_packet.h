#pragma once

#include <QByteArray>

namespace ledra {

/// The metadata of every hybrid PDF: PDF/A-3b (ISO 19005-3) with the extension schema of Factur-X.
QByteArray xmpPacket();

} // namespace ledra
