#pragma once

#include <QByteArray>
#include <QHashFunctions>

#include <cstddef>

namespace ledra {

/// Recognises a content that this process has seen before, at the speed of memory. Not for other processes:
/// they use journalHash().
struct ContentMark
{
    std::size_t hash = 0;
    qsizetype size = 0;

    static ContentMark of(const QByteArray& content)
    {
        return {qHashBits(content.constData(), static_cast<std::size_t>(content.size())), content.size()};
    }

    friend bool operator==(const ContentMark&, const ContentMark&) = default;
};

} // namespace ledra
