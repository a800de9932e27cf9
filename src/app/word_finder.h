#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace ledra {

/// Looks for a word in a large text of bytes.
///
/// It compares the two bytes of the word that are the rarest in the text, eight places at a time: one byte
/// alone is common in every language, and two at their distance are not.
class WordFinder
{
public:
    /// The word must not be empty; `byteCounts` says how often each byte occurs in the text, roughly.
    WordFinder(std::string word, const std::array<std::size_t, 256>& byteCounts);

    /// Where the word begins first within `from` to before `end`, or npos.
    std::size_t find(std::string_view text, std::size_t from, std::size_t end) const;

private:
    bool isAt(std::string_view text, std::size_t place) const
    {
        return text.compare(place, word_.size(), word_) == 0;
    }

    std::string word_;
    std::size_t rarest_;  ///< the place of the byte in the word
    std::size_t another_; ///< that of the second rarest
};

} // namespace ledra
