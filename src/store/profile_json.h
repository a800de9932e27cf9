#pragma once

#include "model/profile.h"
#include "store/invoice_json.h"

namespace ledra {

// clang-format off: one line a key
template <>
inline constexpr std::tuple jsonSchema<Profile> = {
    JSONKey{"id", &Profile::id},
    JSONKey{"icon", &Profile::icon},
    JSONKey{"name", &Profile::name},
    JSONKey{"businessName", &Profile::businessName},
    optionalGroup("address",
                  JSONKey{"lineOne", &Profile::addressLineOne},
                  JSONKey{"lineTwo", &Profile::addressLineTwo},
                  JSONKey{"postcode", &Profile::addressPostcode},
                  JSONKey{"city", &Profile::addressCity},
                  JSONKey{"state", &Profile::addressState},
                  JSONKey{"country", &Profile::addressCountry}),
    JSONKey{"email", &Profile::email},
    JSONKey{"phone", &Profile::phone},
    JSONKey{"website", &Profile::website},
    JSONKey{"additional", &Profile::additional},
    JSONKey{"iban", &Profile::iban},
    JSONKey{"bic", &Profile::bic},
    JSONKey{"taxNumber", &Profile::taxNumber},
    JSONKey{"vatNumber", &Profile::vatNumber},
    JSONKey{"additionalNumbers", &Profile::additionalNumbers},
    JSONKey{"language", &Profile::language},
    JSONKey{"currency", &Profile::currency},
    JSONKey{"taxResidency", &Profile::taxResidency},
    JSONKey{"vatPercentage", &Profile::vatPercentage},
    JSONKey{"hideVat", &Profile::hideVat},
    JSONKey{"vatExemptionReason", &Profile::vatExemptionReason},
    JSONKey{"marginalNote", &Profile::marginalNote},
    JSONKey{"numberFormat", &Profile::numberFormat},
    JSONKey{"cancellationPrefix", &Profile::cancellationPrefix},
    JSONKey{"quotePrefix", &Profile::quotePrefix},
    JSONKey{"startNumber", &Profile::startNumber},
    JSONKey{"startNumberYear", &Profile::startNumberYear},
    JSONKey{"resetNumberFrequency", &Profile::resetNumberFrequency},
    JSONKey{"daysToPay", &Profile::daysToPay},
    JSONKey{"hourlyRate", &Profile::hourlyRate},
    JSONKey{"dailyRate", &Profile::dailyRate},
    JSONKey{"weeklyRate", &Profile::weeklyRate},
    JSONKey{"invoiceDarkMode", &Profile::invoiceDarkMode},
    JSONKey{"reminderTemplate", &Profile::reminderTemplate},
    JSONKey{"friendlyReminderEnabled", &Profile::friendlyReminderEnabled},
    JSONKey{"latePaymentInterestRate", &Profile::latePaymentInterestRate},
    JSONKey{"latePaymentFee", &Profile::latePaymentFee},
};

/// Keys of an older layout, which stood between "quotePrefix" and "startNumber". They are only read.
template <>
inline constexpr std::tuple jsonSchema<LegacyNumbering> = {
    JSONKey{"numberLength", &LegacyNumbering::numberLength},
    JSONKey{"numberPosition", &LegacyNumbering::numberPosition},
    JSONKey{"separator", &LegacyNumbering::separator},
    JSONKey{"numberPrefix", &LegacyNumbering::numberPrefix},
};
// clang-format on

/// Reads a "profile.json". Every key is optional; missing ones take the values of a new profile of the
/// region. The number format comes out in its canonical form, or is built from the keys of the older layout.
[[nodiscard]] Decoded<Profile> decodeProfile(const QByteArray& document, const NewRecordValues& values);

} // namespace ledra
