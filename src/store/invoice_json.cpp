#include "store/invoice_json.h"

namespace ledra {

Decoded<Invoice> decodeInvoice(const QByteArray& document, const NewRecordValues& values, JSONReader& reader)
{
    Invoice invoice = newInvoice(QUuid(), values.now, Country{values.region});
    if (const Decoded<void> decoded = decodeDocument(invoice, document, reader); !decoded)
        return std::unexpected(decoded.error());
    if (invoice.id.isNull())
        invoice.id = values.ids.newId();
    for (Invoice::Item& item : invoice.items) {
        if (item.id.isNull())
            item.id = values.ids.newId();
    }
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
