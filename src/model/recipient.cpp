#include "model/recipient.h"

#include "model/invoice.h"

#include <tuple>

namespace ledra {

namespace {

/// The fields of both records, side by side.
constexpr std::tuple fields = {
    std::pair{&Recipient::name, &Invoice::name},
    std::pair{&Recipient::businessName, &Invoice::businessName},
    std::pair{&Recipient::addressLineOne, &Invoice::addressLineOne},
    std::pair{&Recipient::addressLineTwo, &Invoice::addressLineTwo},
    std::pair{&Recipient::addressPostcode, &Invoice::addressPostcode},
    std::pair{&Recipient::addressCity, &Invoice::addressCity},
    std::pair{&Recipient::addressState, &Invoice::addressState},
    std::pair{&Recipient::addressCountry, &Invoice::addressCountry},
    std::pair{&Recipient::email, &Invoice::email},
};

} // namespace

Recipient recipientOf(const Invoice& invoice)
{
    Recipient recipient;
    std::apply([&](const auto&... pair) { ((recipient.*pair.first = invoice.*pair.second), ...); }, fields);
    return recipient;
}

void setRecipient(Invoice& invoice, const Recipient& recipient)
{
    std::apply([&](const auto&... pair) { ((invoice.*pair.second = recipient.*pair.first), ...); }, fields);
}

} // namespace ledra
