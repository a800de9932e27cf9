#pragma once

#include "einvoice/xml_document.h"
#include "model/clock.h"
#include "model/invoice.h"

#include <QDate>

#include <optional>

namespace ledra {

/// The buyer reference that some programs write where an invoice has none.
inline constexpr QStringView noOrderNumber = u"Keine Bestellnummer";

/// The type code of a credit note (UNTDID 1001).
inline constexpr std::int64_t creditNoteCode = 381;

/// What a Cross Industry Invoice says of itself beside the record.
struct CiiHeader
{
    QString number;            ///< as it is written
    std::int64_t typeCode = 0; ///< 0 when it cannot be read
    std::optional<QDate> dueDate;
    bool hasDate = false;        ///< whether it says when it was issued
    bool hasServiceDate = false; ///< whether it says when the service was rendered
};

/// Whether the root is that of a Cross Industry Invoice; no other syntax is read.
bool isCrossIndustryInvoice(const Element& root);

/// Fills a fresh record from a document: parties, dates, items with net prices, the sum of allowances as
/// discount. What is missing becomes empty; a date or a number that cannot be read leaves the field as it is.
/// A credit note becomes a cancellation.
CiiHeader readCrossIndustryInvoice(const Element& root, Invoice& invoice, IdSource& ids);

} // namespace ledra
