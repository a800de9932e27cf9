#include "app/search_index.h"

#include "app/folded_text.h"
#include "model/displayed_number.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <thread>

namespace ledra {

void SearchIndex::follow(const InvoiceList& list, Known known)
{
    // Reading may have been cut off: the longer stretch saves more.
    if (texts_.ends.size() >= known_.ends.size())
        known_ = std::move(texts_);
    if (known == Known::isOutdated) {
        known_ = {};
        byteCounts_.fill(0);
    }
    passed_ = 0;
    texts_ = {.list = list};
    texts_.ends.reserve(list->size());
    texts_.revisions.reserve(list->size());
    texts_.bytes.reserve(known_.bytes.size());
    searches_.clear();
}

bool SearchIndex::advance(const Profile& profile, QDeadlineTimer end)
{
    constexpr std::size_t recordsBetweenLooks = 64;
    while (!texts_.isWhole()) {
        readNext(profile);
        if (texts_.ends.size() % recordsBetweenLooks == 0 && end.hasExpired())
            return false;
    }
    known_ = {};
    return true;
}

void SearchIndex::readNext(const Profile& profile)
{
    const InvoicePtr& record = (*texts_.list)[texts_.ends.size()];
    searches_.clear();
    if (!takeOver(record)) {
        const Invoice& invoice = **record;
        append(displayedNumber(invoice, profile));
        for (const QString* text :
             {&invoice.name, &invoice.businessName, &invoice.email, &invoice.addressCity, &invoice.note})
            append(*text);
        if (invoice.reference)
            append(*invoice.reference);
        for (const Invoice::Item& item : invoice.items)
            append(item.item);
    }
    texts_.ends.push_back(texts_.bytes.size());
    texts_.revisions.push_back(record->revision());
}

/// Copies the texts of a record that is known and has not changed. The known ones are gone through side by
/// side with the list; those that are no longer in it, or elsewhere, are passed over.
bool SearchIndex::takeOver(const InvoicePtr& record)
{
    constexpr std::size_t farthest = 64;
    const std::size_t last = std::min(passed_ + farthest, known_.ends.size());
    std::size_t place = passed_;
    while (place < last && (*known_.list)[place] != record)
        ++place;
    if (place == last)
        return false;
    passed_ = place + 1;
    if (known_.revisions[place] != record->revision())
        return false;
    texts_.bytes.append(known_.bytes, known_.begin(place), known_.ends[place] - known_.begin(place));
    return true;
}

void SearchIndex::append(QStringView text)
{
    if (text.isEmpty())
        return;
    const std::size_t begin = texts_.bytes.size();
    appendFolded(texts_.bytes, text);
    for (std::size_t i = begin; i < texts_.bytes.size(); ++i)
        ++byteCounts_[static_cast<unsigned char>(texts_.bytes[i])];
    texts_.bytes += '\n';
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

/// The words, the one that promises the fewest hits first.
std::vector<SearchIndex::Needle> SearchIndex::needlesOf(const std::vector<std::string>& words) const
{
    const auto count = [this](char byte) { return byteCounts_[static_cast<unsigned char>(byte)]; };
    std::vector<Needle> needles;
    for (const std::string& word : words) {
        const auto rarest = std::ranges::min_element(word, {}, count);
        needles.push_back({word, static_cast<std::size_t>(rarest - word.begin())});
    }
    std::ranges::sort(needles, {}, [&](const Needle& needle) { return count(needle.word[needle.rarest]); });
    return needles;
}

std::vector<std::uint32_t> SearchIndex::search(const std::vector<std::string>& words,
                                               const Search* earlier) const
{
    const std::vector<Needle> needles = needlesOf(words);
    std::vector<std::uint32_t> found;
    if (needles.empty()) {
        found.resize(texts_.ends.size());
        std::iota(found.begin(), found.end(), 0U);
        return found;
    }
    // Looking into single records is worth it only where they are few.
    if (earlier && earlier->found.size() < texts_.ends.size() / 4) {
        std::ranges::copy_if(earlier->found, std::back_inserter(found), [&](std::uint32_t record) {
            return std::ranges::all_of(needles, [&](const Needle& each) { return occursIn(each, record); });
        });
        return found;
    }
    const std::size_t parts = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::vector<std::uint32_t>> foundIn(parts);
    const auto work = [&](std::size_t part) {
        foundIn[part] =
            searchPart(needles, texts_.ends.size() * part / parts, texts_.ends.size() * (part + 1) / parts);
    };
    {
        std::vector<std::jthread> threads;
        for (std::size_t part = 1; part < parts; ++part)
            threads.emplace_back(work, part);
        work(0);
    }
    for (const std::vector<std::uint32_t>& part : foundIn)
        found.insert(found.end(), part.begin(), part.end());
    return found;
}

/// Looks for the rarest byte, which the machine does many bytes at a time, and compares around it.
std::size_t SearchIndex::find(const Needle& needle, std::size_t from, std::size_t end) const
{
    const std::string& bytes = texts_.bytes;
    for (std::size_t at = from + needle.rarest; at < end; ++at) {
        const void* hit = std::memchr(bytes.data() + at, needle.word[needle.rarest], end - at);
        if (!hit)
            break;
        at = static_cast<std::size_t>(static_cast<const char*>(hit) - bytes.data());
        if (bytes.compare(at - needle.rarest, needle.word.size(), needle.word) == 0)
            return at - needle.rarest;
    }
    return std::string::npos;
}

bool SearchIndex::occursIn(const Needle& needle, std::size_t record) const
{
    return find(needle, texts_.begin(record), texts_.ends[record]) != std::string::npos;
}

/// The records from `first` to before `last` in which all words occur. The texts are gone through once, for
/// the first word; the others are looked for where it was found.
std::vector<std::uint32_t> SearchIndex::searchPart(const std::vector<Needle>& needles, std::size_t first,
                                                   std::size_t last) const
{
    std::vector<std::uint32_t> found;
    const std::vector<std::size_t>& ends = texts_.ends;
    const std::size_t end = last == 0 ? 0 : ends[last - 1];
    for (std::size_t at = find(needles.front(), texts_.begin(first), end); at != std::string::npos;) {
        if (at >= ends[first]) { // else it is the next record, as it mostly is where there are many hits
            const auto holder =
                std::upper_bound(ends.begin() + static_cast<std::ptrdiff_t>(first), ends.end(), at);
            first = static_cast<std::size_t>(holder - ends.begin());
        }
        const auto occurs = [&](const Needle& needle) { return occursIn(needle, first); };
        if (std::all_of(needles.begin() + 1, needles.end(), occurs))
            found.push_back(static_cast<std::uint32_t>(first));
        at = find(needles.front(), ends[first], end);
        ++first;
    }
    return found;
}

} // namespace ledra
