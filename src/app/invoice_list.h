#pragma once

#include "store/invoice_manager.h"

#include <QByteArray>

#include <vector>

namespace ledra {

/// A list for programs: an array of objects with "id", "type", "number", "formattedNumber", "status", "date"
/// and "dueDate" (yyyy-MM-dd), "name" (the business, else the person), "total", "currency" and "isOverdue".
QByteArray listJson(const std::vector<InvoicePtr>& invoices, const Profile& profile, Timestamp now);

/// Who a record is for: the business, else the person.
QString recipientName(const Invoice& invoice);

} // namespace ledra
