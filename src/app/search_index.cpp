#include "app/search_index.h"

#include "app/folded_text.h"
#include "app/parallel_parts.h"
#include "model/displayed_number.h"

#include <algorithm>

namespace ledra {

void SearchIndex::follow(const InvoiceList& list, Known known)
{
    // Reading may have been cut off: the longer stretch saves more.
    if (records_.ends.size() >= known_.ends.size())
        known_ = std::move(records_);
    if (known == Known::isOutdated) {
        known_ = {};
        texts_ = {};
    }
    walk_ = {};
    records_ = {.list = list};
    records_.ends.reserve(list->size());
    records_.revisions.reserve(list->size());
    records_.texts.reserve(known_.texts.size());
    searches_.clear();
}

bool SearchIndex::advance(const Profile& profile, QDeadlineTimer end)
{
    constexpr std::size_t recordsBetweenLooks = 64;
    while (!records_.isWhole()) {
        readNext(profile);
        if (records_.ends.size() % recordsBetweenLooks == 0 && end.hasExpired())
            return false;
    }
    known_ = {}; // letting go of a long list takes its time as well
    return !end.hasExpired();
}

void SearchIndex::readNext(const Profile& profile)
{
    const InvoicePtr& record = (*records_.list)[records_.ends.size()];
    searches_.clear();
    if (!takeOver(record))
        read(**record, profile);
    records_.ends.push_back(records_.texts.size());
    records_.revisions.push_back(record->revision());
}

/// Takes over the texts of a record that is known and has not changed.
bool SearchIndex::takeOver(const InvoicePtr& record)
{
    if (!known_.list)
        return false;
    const auto place = walk_.placeOf(record, std::span(*known_.list).first(known_.ends.size()));
    if (!place || known_.revisions[*place] != record->revision())
        return false;
    records_.texts.insert(records_.texts.end(),
                          known_.texts.begin() + static_cast<std::ptrdiff_t>(known_.begin(*place)),
                          known_.texts.begin() + static_cast<std::ptrdiff_t>(known_.ends[*place]));
    return true;
}

void SearchIndex::read(const Invoice& invoice, const Profile& profile)
{
    records_.texts.push_back(texts_.add(displayedNumber(invoice, profile)));
    const auto read = [this](const QString& text) {
        if (!text.isEmpty())
            records_.texts.push_back(texts_.idOf(text));
    };
    for (const QString* text :
         {&invoice.name, &invoice.businessName, &invoice.email, &invoice.addressCity, &invoice.note})
        read(*text);
    if (invoice.reference)
        read(*invoice.reference);
    for (const Invoice::Item& item : invoice.items)
        read(item.item);
}

/// Whether whatever the longer words find is among what these have found.
bool SearchIndex::Search::holdsAllOf(const std::vector<std::string>& longer) const
{
    return std::ranges::all_of(words, [&](const std::string& word) {
        return std::ranges::any_of(longer, [&](const std::string& each) { return each.contains(word); });
    });
}

const std::vector<std::uint32_t>& SearchIndex::matches(const QString& text)
{
    std::vector<std::string> words;
    for (const QString& word : text.simplified().split(QChar::Space, Qt::SkipEmptyParts))
        appendFolded(words.emplace_back(), word);

    const Search* earlier = nullptr;
    for (const Search& search : searches_) {
        if (search.words == words)
            return search.found;
        if (search.holdsAllOf(words) && (!earlier || search.found.size() < earlier->found.size()))
            earlier = &search;
    }
    std::vector<std::uint32_t> found = search(words, earlier);
    constexpr std::size_t mostSearches = 16;
    if (searches_.size() == mostSearches)
        searches_.erase(searches_.begin());
    return searches_.emplace_back(std::move(words), std::move(found)).found;
}

std::vector<std::uint32_t> SearchIndex::search(const std::vector<std::string>& words,
                                               const Search* earlier) const
{
    std::vector<TextTable::Marks> marks;
    for (const std::string& word : words)
        marks.push_back(texts_.marksOf(word));
    const auto isFound = [&](std::uint32_t record) {
        const auto begin = records_.texts.begin() + static_cast<std::ptrdiff_t>(records_.begin(record));
        const auto end = records_.texts.begin() + static_cast<std::ptrdiff_t>(records_.ends[record]);
        return std::ranges::all_of(marks, [&](const TextTable::Marks& ofWord) {
            return std::any_of(begin, end, [&](TextTable::Id text) { return ofWord[text] != 0; });
        });
    };
    const std::size_t candidates = earlier ? earlier->found.size() : records_.ends.size();
    std::vector<std::vector<std::uint32_t>> foundIn(parallelParts(candidates));
    inParallelParts(candidates, [&](std::size_t part, std::size_t first, std::size_t last) {
        for (std::size_t place = first; place < last; ++place) {
            const std::uint32_t record = earlier ? earlier->found[place] : static_cast<std::uint32_t>(place);
            if (isFound(record))
                foundIn[part].push_back(record);
        }
    });
    std::vector<std::uint32_t> found;
    for (const std::vector<std::uint32_t>& part : foundIn)
        found.insert(found.end(), part.begin(), part.end());
    return found;
}

} // namespace ledra
