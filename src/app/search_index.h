#pragma once

#include "model/profile.h"
#include "store/invoice_manager.h"

#include <QDeadlineTimer>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ledra {

/// The searchable texts of a list of records in one stretch of memory, so that searching a hundred thousand
/// of them takes no longer than a key stroke: displayed number, recipient, e-mail, place, reference, note and
/// the descriptions of the items. Letters match in either case.
///
/// It follows the list in slices, since reading all texts anew takes longer than a person waits for a letter.
class SearchIndex
{
public:
    enum class Known { stays, isOutdated };

    /// Turns to a state of the list, which advance() then reads. What is known of records that have not
    /// changed since stays, unless the profile's numbers look different now.
    void follow(const InvoiceList& list, Known known);

    /// Reads on until all is read, which is the result, or the time is over.
    bool advance(const Profile& profile, QDeadlineTimer end);

    /// The places in the list of the records in which every word of the text occurs, ascending. What was not
    /// read yet is not found.
    const std::vector<std::uint32_t>& matches(const QString& text);

private:
    /// The texts of the first records of a list.
    struct Texts
    {
        InvoiceList list = {};
        std::string bytes = {};             ///< folded UTF-8; line feeds separate, no word contains any
        std::vector<std::size_t> ends = {}; ///< where the texts of a record end, ascending
        std::vector<std::uint32_t> revisions = {}; ///< of the records, when they were read

        std::size_t begin(std::size_t record) const { return record == 0 ? 0 : ends[record - 1]; }
        bool isWhole() const { return !list || ends.size() == list->size(); }
    };

    /// A word and the byte of it that is the rarest in the texts.
    struct Needle
    {
        std::string word;
        std::size_t rarest = 0;
    };

    /// What was found before: who types on searches only that.
    struct Search
    {
        std::vector<std::string> words;
        std::vector<std::uint32_t> found;

        bool holdsAllOf(const std::vector<std::string>& longer) const;
    };

    void readNext(const Profile& profile);
    bool takeOver(const InvoicePtr& record);
    void append(QStringView text);
    std::vector<Needle> needlesOf(const std::vector<std::string>& words) const;
    std::size_t find(const Needle& needle, std::size_t from, std::size_t end) const;
    bool occursIn(const Needle& needle, std::size_t record) const;
    std::vector<std::uint32_t> search(const std::vector<std::string>& words, const Search* earlier) const;
    std::vector<std::uint32_t> searchPart(const std::vector<Needle>& needles, std::size_t first,
                                          std::size_t last) const;

    Texts known_;            ///< of an earlier state, while the present one is read
    std::size_t passed_ = 0; ///< how many of the known records have been compared
    Texts texts_;
    std::array<std::size_t, 256> byteCounts_{}; ///< roughly: what goes is not taken off
    std::vector<Search> searches_;              ///< in these texts
};

} // namespace ledra
