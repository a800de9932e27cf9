#pragma once

#include "model/profile.h"
#include "store/invoice_manager.h"

#include <QString>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ledra {

/// The searchable texts of a list of records in one stretch of memory, so that searching a hundred thousand
/// of them takes no longer than a key stroke: displayed number, recipient, e-mail, place, reference, note and
/// the descriptions of the items. Letters match in either case.
class SearchIndex
{
public:
    void build(const std::vector<InvoicePtr>& invoices, const Profile& profile);

    /// For each record of the list, whether every word of the text occurs in it.
    std::vector<bool> matches(const QString& text) const;

private:
    /// A word and the byte of it that is the rarest in the texts.
    struct Needle
    {
        std::string word;
        std::size_t rarest = 0;
    };

    void append(const QString& text);
    std::size_t begin(std::size_t record) const { return record == 0 ? 0 : ends_[record - 1]; }
    std::size_t frequency(char byte) const { return byteCounts_[static_cast<unsigned char>(byte)]; }
    std::vector<Needle> needlesOf(const QString& text) const;
    std::size_t find(const Needle& needle, std::size_t from, std::size_t end) const;
    std::vector<std::size_t> search(const std::vector<Needle>& needles, std::size_t first,
                                    std::size_t last) const;

    std::string texts_;             ///< folded UTF-8; line feeds separate texts, which no word contains
    std::vector<std::size_t> ends_; ///< where the texts of a record end, ascending
    std::array<std::size_t, 256> byteCounts_{};
};

} // namespace ledra
