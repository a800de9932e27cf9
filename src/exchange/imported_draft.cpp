#include "exchange/imported_draft.h"

#include "einvoice/cii_reader.h"
#include "model/number_format.h"

namespace ledra {

void setLiteralNumber(Invoice& record, const QString& text)
{
    const auto segments = parseNumberFormat(text);
    const bool isLiteral = std::ranges::all_of(segments, [](const NumberFormatSegment& segment) {
        return std::holds_alternative<QString>(segment);
    });
    record.number = 0;
    record.numberFormat = isLiteral ? text : QStringLiteral("{X}");
    if (!isLiteral)
        record.numberVariable = text; // braces in it would otherwise be placeholders
    if (record.type == InvoiceType::cancellation)
        record.cancellationPrefix = QString(); // the text has its own
}

Invoice draftFrom(const Element& root, const Invoice& fresh, IdSource& ids)
{
    Invoice draft = newInvoice(fresh.id, fresh.statusUpdateDate, Country());
    draft.language = fresh.language;
    draft.daysToPay = fresh.daysToPay;
    const CiiHeader header = readCrossIndustryInvoice(root, draft, ids);
    setLiteralNumber(draft, header.number);
    if (header.dueDate)
        draft.daysToPay = draft.date.localDate().daysTo(*header.dueDate);
    return draft;
}

} // namespace ledra
