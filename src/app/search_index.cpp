#include "app/search_index.h"

#include "model/displayed_number.h"

#include <cstring>

namespace ledra {

namespace {

QString folded(const QString& text)
{
    return text.toCaseFolded();
}

} // namespace

void SearchIndex::append(const QString& text)
{
    if (text.isEmpty())
        return;
    texts_ += folded(text).toStdString();
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
        for (const QString& text : {invoice.name, invoice.businessName, invoice.email, invoice.addressCity,
                                    invoice.reference.value_or(QString()), invoice.note})
            append(text);
        for (const Invoice::Item& item : invoice.items)
            append(item.item);
        ends_.push_back(texts_.size());
    }
    byteCounts_.fill(0);
    for (const char byte : texts_)
        ++byteCounts_[static_cast<unsigned char>(byte)];
}

std::vector<bool> SearchIndex::matches(const QString& text) const
{
    std::vector<bool> all(ends_.size(), true);
    const QStringList words = folded(text).split(QChar::Space, Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const std::vector<bool> found = containing(word.toStdString());
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = all[i] && found[i];
    }
    return all;
}

std::vector<bool> SearchIndex::containing(std::string_view word) const
{
    std::vector<bool> found(ends_.size(), false);
    auto end = ends_.begin();
    for (std::size_t at = find(word, 0); at != std::string::npos;) {
        end = std::upper_bound(end, ends_.end(), at);
        found[static_cast<std::size_t>(end - ends_.begin())] = true;
        at = find(word, *end); // once in a record is enough
    }
    return found;
}

/// Looks for the word's rarest byte, which the machine does many bytes at a time, and compares around it.
std::size_t SearchIndex::find(std::string_view word, std::size_t from) const
{
    const auto count = [this](char byte) { return byteCounts_[static_cast<unsigned char>(byte)]; };
    const std::size_t rarest =
        static_cast<std::size_t>(std::ranges::min_element(word, {}, count) - word.begin());
    for (std::size_t at = from + rarest; at < texts_.size(); ++at) {
        const void* hit = std::memchr(texts_.data() + at, word[rarest], texts_.size() - at);
        if (!hit)
            break;
        at = static_cast<std::size_t>(static_cast<const char*>(hit) - texts_.data());
        if (texts_.compare(at - rarest, word.size(), word) == 0)
            return at - rarest;
    }
    return std::string::npos;
}

} // namespace ledra
