#pragma once

#include "model/invoice.h"
#include "model/profile.h"

#include <QByteArray>
#include <QString>

namespace ledra {

/// A record with its computed values as one JSON object: the keys of its file, then "formattedNumber",
/// "subtotal", "discount", "vatAmounts" (a list of objects with "rate" and "amount"), "total", "dueDate"
/// (yyyy-MM-dd) and "isOverdue".
QByteArray summaryJson(const Invoice& invoice, const Profile& profile, Timestamp now);

/// A record for reading on a terminal, in English.
QString summaryText(const Invoice& invoice, const Profile& profile, Timestamp now);

} // namespace ledra
