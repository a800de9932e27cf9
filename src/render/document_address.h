#pragma once

#include <QString>

namespace ledra {

/// The URL scheme under which pages and their fonts are served to the web engine from memory.
inline constexpr char documentScheme[] = "ledra-document";

/// The start of every address: one host, so that a page and its fonts have the same origin.
inline QString documentBase()
{
    return QStringLiteral("ledra-document://document/");
}

inline QString fontUrl(const QString& fileName)
{
    return documentBase() + QStringLiteral("fonts/") + fileName;
}

} // namespace ledra
