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

/// The searchable texts of a list of records in one stretch of memory, so that searching a hundred thousand of them
/// takes no longer than a key stroke: displayed number, recipient, e-mail, place, reference, note and the
/// descriptions of the items. Letters match in either case.
class SearchIndex
{
public:
    void build(const std::vector<InvoicePtr>& invoices, const Profile& profile);

    /// For each record of the list, whether every word of the text occurs in it.
    std::vector<bool> matches(const QString& text) const;

private:
    void append(const QString& text);
    std::vector<bool> containing(std::string_view word) const;
    std::size_t find(std::string_view word, std::size_t from) const;

    std::string texts_;             ///< folded UTF-8; line feeds separate texts, which no word contains
    std::vector<std::size_t> ends_; ///< where the texts of a record end, ascending
    std::array<std::size_t, 256> byteCounts_{};
};

} // namespace ledra
