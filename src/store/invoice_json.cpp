#include "store/invoice_json.h"

namespace ledra {

Decoded<Invoice> decodeInvoiceAsFound(const QByteArray& document, Timestamp now, const QString& region,
                                      JSONReader& reader)
{
    Invoice invoice = newInvoice(QUuid(), now, Country{region});
    if (const Decoded<void> decoded = decodeDocument(invoice, document, reader); !decoded)
        return std::unexpected(decoded.error());
    return invoice;
}

bool hasMissingIds(const Invoice& invoice)
{
    return invoice.id.isNull() ||
           std::ranges::any_of(invoice.items, [](const Invoice::Item& item) { return item.id.isNull(); });
}

void completeIds(Invoice& invoice, IdSource& ids)
{
    if (invoice.id.isNull())
        invoice.id = ids.newId();
    for (Invoice::Item& item : invoice.items) {
        if (item.id.isNull())
            item.id = ids.newId();
    }
}

Decoded<Invoice> decodeInvoice(const QByteArray& document, const NewRecordValues& values, JSONReader& reader)
{
    Decoded<Invoice> invoice = decodeInvoiceAsFound(document, values.now, values.region, reader);
    if (invoice)
        completeIds(*invoice, values.ids);
    return invoice;
}

Decoded<Invoice> decodeInvoice(const QByteArray& document, const NewRecordValues& values)
{
    JSONReader reader;
    return decodeInvoice(document, values, reader);
}

QByteArray encodeInvoiceForEmbedding(const Invoice& invoice)
{
    OrderedJSONEncoder encoder;
    encoder.dateForm = DateForm::iso8601;
    return encoder.encode(invoice).value();
}

} // namespace ledra
