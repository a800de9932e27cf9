#pragma once

#include "model/recipient.h"
#include "store/invoice_manager.h"

#include <QString>

#include <vector>

namespace ledra {

/// What was entered in the records of a profile before, for completing what is being typed. A text matches if
/// each of its words begins a word of the entry, whatever the case and the accents of the letters.
class EarlierEntries
{
public:
    /// @param invoices the newest first, as InvoiceManager has them
    explicit EarlierEntries(const std::vector<InvoicePtr>& invoices);

    /// Recipients that match, those of the newest records first. Two that differ in case or blanks only are
    /// one.
    std::vector<Recipient> recipients(const QString& text, std::size_t most) const;

    /// Items whose description matches, each with its latest unit, price and rate. The ids are null.
    std::vector<Invoice::Item> items(const QString& text, std::size_t most) const;

private:
    template <class Value>
    struct Entry
    {
        Value value;
        QString words; ///< folded, each with a blank before it
    };

    std::vector<Entry<Recipient>> recipients_;
    std::vector<Entry<Invoice::Item>> items_;
};

} // namespace ledra
