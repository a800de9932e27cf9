#include "app/earlier_entries.h"

#include <QSet>

#include <algorithm>

namespace ledra {

namespace {

/// Lower case without accents; everything but letters and digits becomes a blank, and one stands in front.
QString folded(const QString& text)
{
    QString plain = u' ' + text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    plain.removeIf([](QChar c) { return c.isMark(); });
    for (QChar& c : plain) {
        if (!c.isLetterOrNumber())
            c = u' ';
    }
    return plain;
}

/// The words of a typed text, each with a blank before it: so they occur where a word begins.
QStringList beginningsOf(const QString& text)
{
    QStringList beginnings;
    for (const QString& word : folded(text).split(u' ', Qt::SkipEmptyParts))
        beginnings += u' ' + word;
    return beginnings;
}

QString textOf(const Recipient& recipient)
{
    return QStringList{recipient.name,           recipient.businessName, recipient.addressLineOne,
                       recipient.addressLineTwo, recipient.addressCity,  recipient.email}
        .join(u'\n');
}

bool isEmpty(const Recipient& recipient)
{
    return recipient.name.isEmpty() && recipient.businessName.isEmpty();
}

template <class Value, class Entries>
std::vector<Value> matching(const Entries& entries, const QString& text, std::size_t most)
{
    const QStringList beginnings = beginningsOf(text);
    std::vector<Value> found;
    for (const auto& entry : entries) {
        if (found.size() == most)
            break;
        if (std::ranges::all_of(beginnings, [&](const QString& word) { return entry.words.contains(word); }))
            found.push_back(entry.value);
    }
    return found;
}

} // namespace

EarlierEntries::EarlierEntries(const std::vector<InvoicePtr>& invoices)
{
    QSet<QString> seenRecipients;
    QSet<QString> seenItems;
    const auto isNew = [](QSet<QString>& seen, const QString& words) {
        const qsizetype before = seen.size();
        seen.insert(words.simplified());
        return seen.size() > before;
    };
    for (const InvoicePtr& record : invoices) {
        const Recipient recipient = recipientOf(**record);
        const QString words = folded(textOf(recipient));
        if (!isEmpty(recipient) && isNew(seenRecipients, words))
            recipients_.push_back({recipient, words});
        for (const Invoice::Item& item : (*record)->items) {
            const QString itemWords = folded(item.item);
            if (item.item.trimmed().isEmpty() || !isNew(seenItems, itemWords))
                continue;
            items_.push_back({item, itemWords});
            items_.back().value.id = QUuid();
        }
    }
}

std::vector<Recipient> EarlierEntries::recipients(const QString& text, std::size_t most) const
{
    return matching<Recipient>(recipients_, text, most);
}

std::vector<Invoice::Item> EarlierEntries::items(const QString& text, std::size_t most) const
{
    return matching<Invoice::Item>(items_, text, most);
}

} // namespace ledra
