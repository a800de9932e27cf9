#include "app/search_index.h"

#include "model/displayed_number.h"

#include <cstring>
#include <thread>

namespace ledra {

namespace {

void appendUtf8(std::string& text, char32_t letter)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((letter >> shift) & 0x3F)); };
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += static_cast<char>(0xC0 | (letter >> 6));
        tail(0);
    } else if (letter < 0x10000) {
        text += static_cast<char>(0xE0 | (letter >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (letter >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// Unicode's simple case folding, as UTF-8. Many times as fast as folding and converting whole strings, of
/// which there are more than a million.
void appendFolded(std::string& folded, QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit < 0x80) {
            folded += static_cast<char>(unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit);
        } else if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            appendUtf8(folded, QChar::toCaseFolded(QChar::surrogateToUcs4(text[i], text[i + 1])));
            ++i;
        } else {
            appendUtf8(folded, QChar::toCaseFolded(char32_t{unit}));
        }
    }
}

} // namespace

void SearchIndex::append(const QString& text)
{
    if (text.isEmpty())
        return;
    appendFolded(texts_, text);
    texts_ += '\n';
}

void SearchIndex::build(const std::vector<InvoicePtr>& invoices, const Profile& profile)
{
    texts_.clear();
    ends_.clear();
    ends_.reserve(invoices.size());
    for (const InvoicePtr& record : invoices) {
        const Invoice& invoice = **record;
        append(displayedNumber(invoice, profile));
        for (const QString* text :
             {&invoice.name, &invoice.businessName, &invoice.email, &invoice.addressCity, &invoice.note})
            append(*text);
        if (invoice.reference)
            append(*invoice.reference);
        for (const Invoice::Item& item : invoice.items)
            append(item.item);
        ends_.push_back(texts_.size());
    }
    byteCounts_.fill(0);
    for (const char byte : texts_)
        ++byteCounts_[static_cast<unsigned char>(byte)];
}

/// The words of a text, the one that promises the fewest hits first.
std::vector<SearchIndex::Needle> SearchIndex::needlesOf(const QString& text) const
{
    std::vector<Needle> needles;
    const auto count = [this](char byte) { return frequency(byte); };
    for (const QString& word : text.simplified().split(QChar::Space, Qt::SkipEmptyParts)) {
        Needle needle;
        appendFolded(needle.word, word);
        const auto rarest = std::ranges::min_element(needle.word, {}, count);
        needle.rarest = static_cast<std::size_t>(rarest - needle.word.begin());
        needles.push_back(std::move(needle));
    }
    std::ranges::sort(needles, {}, [&](const Needle& needle) { return count(needle.word[needle.rarest]); });
    return needles;
}

std::vector<bool> SearchIndex::matches(const QString& text) const
{
    const std::vector<Needle> needles = needlesOf(text);
    if (needles.empty())
        return std::vector<bool>(ends_.size(), true);
    const std::size_t parts = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::vector<std::size_t>> found(parts);
    const auto searchPart = [&](std::size_t part) {
        found[part] = search(needles, ends_.size() * part / parts, ends_.size() * (part + 1) / parts);
    };
    {
        std::vector<std::jthread> threads;
        for (std::size_t part = 1; part < parts; ++part)
            threads.emplace_back(searchPart, part);
        searchPart(0);
    }
    std::vector<bool> all(ends_.size(), false);
    for (const std::vector<std::size_t>& part : found) {
        for (const std::size_t record : part)
            all[record] = true;
    }
    return all;
}

/// Looks for the rarest byte, which the machine does many bytes at a time, and compares around it.
std::size_t SearchIndex::find(const Needle& needle, std::size_t from, std::size_t end) const
{
    for (std::size_t at = from + needle.rarest; at < end; ++at) {
        const void* hit = std::memchr(texts_.data() + at, needle.word[needle.rarest], end - at);
        if (!hit)
            break;
        at = static_cast<std::size_t>(static_cast<const char*>(hit) - texts_.data());
        if (texts_.compare(at - needle.rarest, needle.word.size(), needle.word) == 0)
            return at - needle.rarest;
    }
    return std::string::npos;
}

/// The records from `first` to before `last` in which all words occur. The texts are gone through once, for
/// the first word; the others are looked for where it was found.
std::vector<std::size_t> SearchIndex::search(const std::vector<Needle>& needles, std::size_t first,
                                             std::size_t last) const
{
    std::vector<std::size_t> found;
    const std::size_t end = last == 0 ? 0 : ends_[last - 1];
    for (std::size_t at = find(needles.front(), begin(first), end); at != std::string::npos;) {
        const auto holder =
            std::upper_bound(ends_.begin() + static_cast<std::ptrdiff_t>(first), ends_.end(), at);
        first = static_cast<std::size_t>(holder - ends_.begin());
        const auto occurs = [&](const Needle& needle) {
            return find(needle, begin(first), *holder) != std::string::npos;
        };
        if (std::all_of(needles.begin() + 1, needles.end(), occurs))
            found.push_back(first);
        at = find(needles.front(), *holder, end);
    }
    return found;
}

} // namespace ledra
