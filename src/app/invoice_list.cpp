#include "app/invoice_list.h"

#include "model/displayed_number.h"
#include "store/invoice_json.h"

namespace ledra {

namespace {

/// One object of the list.
struct Row
{
    const Invoice& invoice;
    const Profile& profile;
    Timestamp now;
};

void encode(const Row& row, JSONEncoderState& state)
{
    const Invoice& invoice = row.invoice;
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", invoice.id);
    object.encode("type", invoice.type);
    object.encode("number", invoice.number);
    object.encode("formattedNumber", displayedNumber(invoice, row.profile));
    object.encode("status", invoice.status);
    object.encode("date", dayText(invoice.date.localDate()));
    object.encode("dueDate", dayText(invoice.dueDay()));
    object.encode("name", recipientName(invoice));
    object.encode("total", invoice.total());
    object.encode("currency", invoice.currency);
    object.encode("isOverdue", invoice.isOverdue(row.now));
}

} // namespace

QString recipientName(const Invoice& invoice)
{
    return invoice.businessName.isEmpty() ? invoice.name : invoice.businessName;
}

QByteArray listJson(const std::vector<InvoicePtr>& invoices, const Profile& profile, Timestamp now)
{
    std::vector<Row> rows;
    rows.reserve(invoices.size());
    for (const InvoicePtr& invoice : invoices)
        rows.push_back({**invoice, profile, now});
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = {JSONFormatting::prettyPrinted};
    return encoder.encode(rows).value();
}

} // namespace ledra
