#include "app/text_table.h"

#include "app/folded_text.h"
#include "app/parallel_parts.h"
#include "app/word_finder.h"

#include <algorithm>

namespace ledra {

TextTable::Id TextTable::idOf(const QString& text)
{
    const auto known = ids_.constFind(text);
    if (known != ids_.cend())
        return *known;
    return *ids_.insert(text, add(text));
}

TextTable::Id TextTable::add(QStringView text)
{
    const std::size_t begin = bytes_.size();
    appendFolded(bytes_, text);
    for (std::size_t i = begin; i < bytes_.size(); ++i)
        ++byteCounts_[static_cast<unsigned char>(bytes_[i])];
    bytes_ += '\n';
    ends_.push_back(bytes_.size());
    return static_cast<Id>(ends_.size() - 1);
}

TextTable::Marks TextTable::marksOf(const std::string& foldedWord) const
{
    if (foldedWord.empty())
        return Marks(ends_.size(), 1);
    Marks marks(ends_.size(), 0);
    const WordFinder finder(foldedWord, byteCounts_);
    inParallelParts(ends_.size(), [&](std::size_t, std::size_t first, std::size_t last) {
        const std::size_t end = begin(last);
        std::size_t id = first;
        for (std::size_t at = finder.find(bytes_, begin(first), end); at != std::string::npos;
             at = finder.find(bytes_, ends_[id], end)) {
            if (at >= ends_[id]) {
                const auto holder =
                    std::upper_bound(ends_.begin() + static_cast<std::ptrdiff_t>(id), ends_.end(), at);
                id = static_cast<std::size_t>(holder - ends_.begin());
            }
            marks[id] = 1;
        }
    });
    return marks;
}

} // namespace ledra
