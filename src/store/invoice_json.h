#pragma once

#include "model/clock.h"
#include "model/invoice.h"
#include "store/json_schema.h"

namespace ledra {

/// What the values of a missing key are taken from.
struct NewRecordValues
{
    Timestamp now;
    IdSource& ids;
    QString region; ///< ISO 3166-1 alpha-2
};

// clang-format off: one line a key
template <>
inline constexpr std::tuple jsonSchema<Invoice::Item> = {
    JSONKey{"id", &Invoice::Item::id},
    JSONKey{"quantity", &Invoice::Item::quantity},
    JSONKey{"unit", &Invoice::Item::unit},
    JSONKey{"unitPrice", &Invoice::Item::unitPrice},
    JSONKey{"vatPercentage", &Invoice::Item::vatPercentage},
    JSONKey{"description", &Invoice::Item::item},
};

template <>
inline constexpr std::tuple jsonSchema<Invoice> = {
    JSONKey{"version", &Invoice::version},
    JSONKey{"type", &Invoice::type},
    JSONKey{"id", &Invoice::id},
    JSONKey{"cancelledInvoiceId", &Invoice::cancelledInvoiceId},
    JSONKey{"quoteId", &Invoice::quoteId},
    JSONKey{"number", &Invoice::number},
    JSONKey{"numberFormat", &Invoice::numberFormat},
    JSONKey{"numberVariable", &Invoice::numberVariable},
    JSONKey{"cancellationPrefix", &Invoice::cancellationPrefix},
    JSONKey{"quotePrefix", &Invoice::quotePrefix},
    JSONKey{"date", &Invoice::date},
    JSONKey{"serviceDateStart", &Invoice::serviceDateStart},
    JSONKey{"serviceDateEnd", &Invoice::serviceDateEnd},
    requiredGroup("recipient",
                  JSONKey{"name", &Invoice::name},
                  JSONKey{"businessName", &Invoice::businessName},
                  requiredGroup("address",
                                JSONKey{"lineOne", &Invoice::addressLineOne},
                                JSONKey{"lineTwo", &Invoice::addressLineTwo},
                                JSONKey{"postcode", &Invoice::addressPostcode},
                                JSONKey{"city", &Invoice::addressCity},
                                JSONKey{"state", &Invoice::addressState},
                                JSONKey{"country", &Invoice::addressCountry}),
                  JSONKey{"email", &Invoice::email}),
    requiredGroup("sender",
                  JSONKey{"name", &Invoice::senderName},
                  JSONKey{"businessName", &Invoice::senderBusinessName},
                  requiredGroup("address",
                                JSONKey{"lineOne", &Invoice::senderAddressLineOne},
                                JSONKey{"lineTwo", &Invoice::senderAddressLineTwo},
                                JSONKey{"postcode", &Invoice::senderAddressPostcode},
                                JSONKey{"city", &Invoice::senderAddressCity},
                                JSONKey{"state", &Invoice::senderAddressState},
                                JSONKey{"country", &Invoice::senderAddressCountry}),
                  JSONKey{"email", &Invoice::senderEmail},
                  JSONKey{"phone", &Invoice::senderPhone},
                  JSONKey{"web", &Invoice::senderWeb},
                  JSONKey{"additional", &Invoice::senderAdditional},
                  JSONKey{"iban", &Invoice::senderIban},
                  JSONKey{"bic", &Invoice::senderBic},
                  JSONKey{"taxNumber", &Invoice::senderTaxNumber},
                  JSONKey{"vatNumber", &Invoice::senderVatNumber},
                  JSONKey{"additionalNumbers", &Invoice::senderAdditionalNumbers}),
    JSONKey{"items", &Invoice::items},
    JSONKey{"grossPrices", &Invoice::grossPrices},
    JSONKey{"discountPercentage", &Invoice::discountPercentage},
    JSONKey{"discountAmount", &Invoice::discountAmount},
    JSONKey{"vatExemptionReason", &Invoice::vatExemptionReason},
    JSONKey{"marginalNote", &Invoice::marginalNote},
    JSONKey{"daysToPay", &Invoice::daysToPay},
    JSONKey{"currency", &Invoice::currency},
    JSONKey{"language", &Invoice::language},
    JSONKey{"status", &Invoice::status},
    JSONKey{"statusUpdateDate", &Invoice::statusUpdateDate},
    JSONKey{"note", &Invoice::note},
    JSONKey{"reference", &Invoice::reference},
};
// clang-format on

/// Reads an invoice file. Missing keys take their new-record values; a wrong type, an unknown raw value or a
/// missing nested object makes the file unreadable.
[[nodiscard]] Decoded<Invoice> decodeInvoice(const QByteArray& document, const NewRecordValues& values);
[[nodiscard]] Decoded<Invoice> decodeInvoice(const QByteArray& document, const NewRecordValues& values,
                                             JSONReader& reader);

/// The same, but an id that is missing stays null; for threads, which share no id source.
[[nodiscard]] Decoded<Invoice> decodeInvoiceAsFound(const QByteArray& document, Timestamp now,
                                                    const QString& region, JSONReader& reader);

/// Whether the record or one of its items has no id.
bool hasMissingIds(const Invoice& invoice);

/// Gives the record and its items the ids that they lack.
void completeIds(Invoice& invoice, IdSource& ids);

/// The compact form with ISO 8601 dates that exported documents carry.
QByteArray encodeInvoiceForEmbedding(const Invoice& invoice);

} // namespace ledra
