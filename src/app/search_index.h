#pragma once

#include "app/list_walk.h"
#include "app/text_table.h"
#include "model/profile.h"
#include "store/invoice_manager.h"

#include <QDeadlineTimer>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ledra {

/// The searchable texts of a list of records, kept so that searching a hundred thousand of them takes no
/// longer than a key stroke: displayed number, recipient, e-mail, place, reference, note and the descriptions
/// of the items. A word is looked for in the texts, each of which is there once, and then the records of
/// those are collected.
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
    /// Which texts the first records of a list have.
    struct Records
    {
        InvoiceList list = {};
        std::vector<TextTable::Id> texts = {};
        std::vector<std::size_t> ends = {};        ///< where the texts of a record end, ascending
        std::vector<std::uint32_t> revisions = {}; ///< of the records, when they were read

        std::size_t begin(std::size_t record) const { return record == 0 ? 0 : ends[record - 1]; }
        bool isWhole() const { return !list || ends.size() == list->size(); }
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
    void read(const Invoice& invoice, const Profile& profile);
    std::vector<std::uint32_t> search(const std::vector<std::string>& words, const Search* earlier) const;

    TextTable texts_; ///< texts that no record has any more stay until the numbers look different
    Records known_;   ///< of an earlier state, while the present one is read
    ListWalk walk_;   ///< through their list
    Records records_;
    std::vector<Search> searches_; ///< in these records
};

} // namespace ledra
