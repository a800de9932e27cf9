#include "store/profile_json.h"

#include "model/number_format.h"

namespace ledra {

Decoded<Profile> decodeProfile(const QByteArray& document, const NewRecordValues& values)
{
    JSONReader reader;
    Profile profile = newProfile(QUuid(), values.region);
    profile.numberFormat.clear();
    LegacyNumbering legacy;
    Decoded<void> decoded = decodeDocument(profile, document, reader);
    if (decoded)
        decoded = decodeDocument(legacy, document, reader);
    if (!decoded)
        return std::unexpected(decoded.error());

    if (profile.id.isNull())
        profile.id = values.ids.newId();
    profile.numberFormat = profile.numberFormat.isEmpty() ? numberFormatFrom(legacy)
                                                          : canonicalNumberFormat(profile.numberFormat);
    return profile;
}

} // namespace ledra
