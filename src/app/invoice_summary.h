#pragma once

#include "model/invoice.h"
#include "model/profile.h"

#include <QByteArray>
#include <QString>

namespace ledra {

class JSONEncoderState;

/// A record and what its computed values depend on.
struct InvoiceSummary
{
    const Invoice& invoice;
    const Profile& profile;
    Timestamp now;
};

/// For objects that hold the one of summaryJson().
void encode(const InvoiceSummary& summary, JSONEncoderState& state);

/// A record with its computed values as one JSON object: the keys of its file, then "formattedNumber",
/// "subtotal", "discount", "vatAmounts" (a list of objects with "rate" and "amount"), "total", "dueDate"
/// (yyyy-MM-dd) and "isOverdue".
QByteArray summaryJson(const Invoice& invoice, const Profile& profile, Timestamp now);

/// Whose document a summary tells of: of one that somebody else made there is no status.
enum class SummaryKind { record, received };

/// A record for reading on a terminal, in English.
QString summaryText(const Invoice& invoice, const Profile& profile, Timestamp now,
                    SummaryKind kind = SummaryKind::record);

} // namespace ledra
