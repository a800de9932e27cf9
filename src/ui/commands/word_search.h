#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>

namespace ledra {

/// Whether each word of a search stands somewhere in a text, which is folded.
inline bool holdsWords(const QString& folded, const QString& search)
{
    const QStringList words = search.toCaseFolded().split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(words, [&](const QString& word) { return folded.contains(word); });
}

} // namespace ledra
