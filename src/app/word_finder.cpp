#include "app/word_finder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace ledra {

namespace {

using Eight = std::uint64_t;

constexpr Eight allOnes = 0x0101010101010101;
constexpr Eight lowBits = 0x7F7F7F7F7F7F7F7F;

Eight bytesAt(std::string_view text, std::size_t place)
{
    Eight bytes;
    std::memcpy(&bytes, text.data() + place, sizeof bytes);
    return bytes;
}

Eight eightTimes(char byte)
{
    return allOnes * static_cast<unsigned char>(byte);
}

bool hasZeroByte(Eight bytes)
{
    return ~(((bytes & lowBits) + lowBits) | bytes | lowBits) != 0;
}

} // namespace

WordFinder::WordFinder(std::string word, const std::array<std::size_t, 256>& byteCounts)
    : word_(std::move(word))
{
    const auto count = [&](std::size_t place) {
        return byteCounts[static_cast<unsigned char>(word_[place])];
    };
    rarest_ = 0;
    for (std::size_t place = 1; place < word_.size(); ++place) {
        if (count(place) < count(rarest_))
            rarest_ = place;
    }
    another_ = rarest_ == 0 ? word_.size() - 1 : 0;
    for (std::size_t place = 0; place < word_.size(); ++place) {
        if (place != rarest_ && count(place) < count(another_))
            another_ = place;
    }
}

std::size_t WordFinder::find(std::string_view text, std::size_t from, std::size_t end) const
{
    if (from + word_.size() > end)
        return std::string::npos;
    const std::size_t last = end - word_.size(); // where it can begin
    if (word_.size() == 1) {
        const void* hit = std::memchr(text.data() + from, word_.front(), end - from);
        return hit ? static_cast<std::size_t>(static_cast<const char*>(hit) - text.data())
                   : std::string::npos;
    }
    const Eight first = eightTimes(word_[rarest_]);
    const Eight second = eightTimes(word_[another_]);
    std::size_t place = from;
    for (; place + sizeof(Eight) <= last + 1; place += sizeof(Eight)) {
        const Eight differing =
            (bytesAt(text, place + rarest_) ^ first) | (bytesAt(text, place + another_) ^ second);
        if (!hasZeroByte(differing))
            continue;
        for (std::size_t each = place; each < place + sizeof(Eight); ++each) {
            if (isAt(text, each))
                return each;
        }
    }
    for (; place <= last; ++place) {
        if (isAt(text, place))
            return place;
    }
    return std::string::npos;
}

} // namespace ledra
