#pragma once

#include <cstdint>
#include <string>

/// Cross Industry Invoices (D16B) that the schema allows but nobody would write: seeded, the same everywhere.
namespace ledra::test {

/// Whether optional elements stand: none, every one, or by chance.
enum class Presence { required, all, random };

struct CiiOrder
{
    std::uint32_t seed = 0;
    Presence presence = Presence::random;
    int repetitions = 1; ///< how often a repeatable element stands at most: 1 to 3
};

/// A document as UTF-8, at times with a byte order mark. With all, every row of the grammar stands at least
/// once, and down to the fourth level wherever it may; what repeats is complete the first time.
std::string ciiDocument(const CiiOrder& order);

} // namespace ledra::test
