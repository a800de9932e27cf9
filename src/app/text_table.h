#pragma once

#include <QHash>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ledra {

/// Texts to be searched, in one stretch of memory and each only once: what people sell and to whom repeats
/// from invoice to invoice. Letters match in either case.
class TextTable
{
public:
    using Id = std::uint32_t;

    /// Which texts a word occurs in: not zero at the place of each.
    using Marks = std::vector<unsigned char>;

    /// The place of a text, which is added if it is new.
    Id idOf(const QString& text);

    /// Adds a text that hardly any other is equal to, such as a number: looking it up would not pay.
    Id add(QStringView text);

    /// Of a word that is folded as the texts are; see appendFolded(). An empty one occurs everywhere.
    Marks marksOf(const std::string& foldedWord) const;

private:
    std::size_t begin(std::size_t id) const { return id == 0 ? 0 : ends_[id - 1]; }

    std::string bytes_;             ///< UTF-8; line feeds separate, since no word contains any
    std::vector<std::size_t> ends_; ///< where the texts end, ascending
    QHash<QString, Id> ids_;
    std::array<std::size_t, 256> byteCounts_{};
};

} // namespace ledra
