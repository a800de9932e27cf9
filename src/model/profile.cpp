#include "model/profile.h"

#include "model/region.h"

#include <algorithm>

namespace ledra {

QString Profile::displayName() const
{
    if (!profileName)
        return QStringLiteral("Unnamed");
    const qsizetype underscore = profileName->indexOf(u'_');
    bool isNumber = false;
    if (underscore > 0)
        profileName->left(underscore).toLongLong(&isNumber);
    return isNumber ? profileName->sliced(underscore + 1) : *profileName;
}

Profile newProfile(const QUuid& id, const QString& region)
{
    const bool german = isGermanSpeaking(region);
    const CountryFacts* facts = findCountry(region);

    Profile profile;
    profile.id = id;
    profile.addressCountry = Country{region};
    profile.taxResidency = Country{region};
    profile.language = german ? Language::german : Language::english;
    profile.currency = currencyOfRegion(region);
    profile.vatPercentage = facts ? facts->standardVatRate : 0;
    profile.cancellationPrefix = german ? QStringLiteral("STO-") : QStringLiteral("CN-");
    profile.quotePrefix = german ? QStringLiteral("AN-") : QStringLiteral("QU-");
    return profile;
}

QString numberFormatFrom(const LegacyNumbering& legacy)
{
    // The number chip knows at most five digits; an older file that asks for none still needs one.
    const auto digits = std::clamp<std::int64_t>(legacy.numberLength.value_or(3), 1, 5);
    const QString number = u'{' + QString(static_cast<qsizetype>(digits), u'N') + u'}';
    const QString year = QStringLiteral("{YYYY}");
    const QString separator = legacy.separator.value_or(QStringLiteral("-"));
    const QString prefix = legacy.numberPrefix.value_or(QString());

    const QString start = prefix.isEmpty() ? QString() : prefix + separator;
    const bool yearFirst = legacy.numberPosition.value_or(true);
    return start + (yearFirst ? year + separator + number : number + separator + year);
}

} // namespace ledra
