#include "store/styling_json.h"

namespace ledra {

Decoded<Styling> decodeStyling(const QByteArray& document, const NewRecordValues& values)
{
    JSONReader reader;
    Styling styling = newStyling(QUuid(), values.region);
    if (const Decoded<void> decoded = decodeDocument(styling, document, reader); !decoded)
        return std::unexpected(decoded.error());
    if (styling.id.isNull())
        styling.id = values.ids.newId();
    return styling;
}

} // namespace ledra
