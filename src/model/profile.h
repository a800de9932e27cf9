#pragma once

#include "model/country.h"
#include "model/currency.h"
#include "model/enumerations.h"
#include "model/record.h"

#include <QUuid>

#include <cstdint>
#include <optional>

namespace ledra {

/// A sender of invoices: who it is, its bank and tax identifiers, the defaults of its new invoices and its
/// numbering and reminder settings. Lives in a folder of its own, as "profile.json".
struct Profile
{
    QUuid id;
    std::optional<QString> profileName; ///< the folder's name; never written into the file
    QString icon = QStringLiteral("person.fill");
    QString name;
    QString businessName;
    QString addressLineOne;
    QString addressLineTwo;
    QString addressPostcode;
    QString addressCity;
    QString addressState;
    Country addressCountry;
    QString email;
    QString phone;
    QString website;
    QString additional;
    QString iban;
    QString bic;
    QString taxNumber;
    QString vatNumber;
    QString additionalNumbers;
    Language language = Language::english;
    Currency currency;
    Country taxResidency;
    double vatPercentage = 0; ///< percent
    bool hideVat = false;
    VATExemptionReason vatExemptionReason = VATExemptionReason::none;
    QString marginalNote;
    QString numberFormat = QStringLiteral("{YYYY}-{NNN}");
    QString cancellationPrefix;
    QString quotePrefix;
    std::int64_t startNumber = 1;
    std::optional<std::int64_t> startNumberYear;
    NumberResetFrequency resetNumberFrequency = NumberResetFrequency::year;
    std::int64_t daysToPay = 14;
    double hourlyRate = 0; ///< in the profile's currency, as are the next two
    double dailyRate = 0;
    double weeklyRate = 0;
    bool invoiceDarkMode = false;
    QString reminderTemplate;
    bool friendlyReminderEnabled = true;
    double latePaymentInterestRate = 0; ///< percent per year
    double latePaymentFee = 40;         ///< in the profile's currency

    /// The folder's name without its number prefix; "Unnamed" without a folder.
    QString displayName() const;

    friend bool operator==(const Profile&, const Profile&) = default;
};

using ProfileRecord = Record<Profile>;

/// A new profile with the language, currency, VAT rate and number prefixes of a region (ISO 3166-1 alpha-2).
Profile newProfile(const QUuid& id, const QString& region);

/// The numbering settings of an older file layout, which are read and never written.
struct LegacyNumbering
{
    std::optional<std::int64_t> numberLength;
    std::optional<bool> numberPosition; ///< true: the number comes last, after the year
    std::optional<QString> separator;
    std::optional<QString> numberPrefix;
};

/// The number format that says the same as those older settings; all of them absent gives "{YYYY}-{NNN}".
QString numberFormatFrom(const LegacyNumbering& legacy);

template <>
inline constexpr std::tuple recordFields<Profile> = {
    &Profile::id,
    &Profile::profileName,
    &Profile::icon,
    &Profile::name,
    &Profile::businessName,
    &Profile::addressLineOne,
    &Profile::addressLineTwo,
    &Profile::addressPostcode,
    &Profile::addressCity,
    &Profile::addressState,
    &Profile::addressCountry,
    &Profile::email,
    &Profile::phone,
    &Profile::website,
    &Profile::additional,
    &Profile::iban,
    &Profile::bic,
    &Profile::taxNumber,
    &Profile::vatNumber,
    &Profile::additionalNumbers,
    &Profile::language,
    &Profile::currency,
    &Profile::taxResidency,
    &Profile::vatPercentage,
    &Profile::hideVat,
    &Profile::vatExemptionReason,
    &Profile::marginalNote,
    &Profile::numberFormat,
    &Profile::cancellationPrefix,
    &Profile::quotePrefix,
    &Profile::startNumber,
    &Profile::startNumberYear,
    &Profile::resetNumberFrequency,
    &Profile::daysToPay,
    &Profile::hourlyRate,
    &Profile::dailyRate,
    &Profile::weeklyRate,
    &Profile::invoiceDarkMode,
    &Profile::reminderTemplate,
    &Profile::friendlyReminderEnabled,
    &Profile::latePaymentInterestRate,
    &Profile::latePaymentFee,
};

} // namespace ledra
