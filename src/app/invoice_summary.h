#pragma once

#include "model/invoice.h"
#include "model/profile.h"

#include <QByteArray>
#include <QString>

#include <set>
#include <string_view>

namespace ledra {

class JSONEncoderState;

/// What a summary of somebody else's document says otherwise than the one of a record; it has no status.
struct ReceivedHead
{
    QString title;                       ///< what kind of document it is
    std::set<std::string_view> unstated; ///< keys of summaryJson() that the document says nothing of
};

/// A record and what its computed values depend on.
struct InvoiceSummary
{
    const Invoice& invoice;
    const Profile& profile;
    Timestamp now;
    const ReceivedHead* received = nullptr; ///< of a document that somebody else made

    bool isStated(std::string_view key) const { return !received || !received->unstated.contains(key); }
};

/// For objects that hold the one of summaryJson(), without the keys that are not stated.
void encode(const InvoiceSummary& summary, JSONEncoderState& state);

/// A record with its computed values as one JSON object: the keys of its file, then "formattedNumber",
/// "subtotal", "discount", "vatAmounts" (a list of objects with "rate" and "amount"), "total", "dueDate"
/// (yyyy-MM-dd) and "isOverdue".
QByteArray summaryJson(const Invoice& invoice, const Profile& profile, Timestamp now);

/// A record for reading on a terminal, in English.
QString summaryText(const InvoiceSummary& summary);

} // namespace ledra
