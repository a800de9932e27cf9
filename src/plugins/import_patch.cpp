#include "plugins/import_patch.h"

#include "store/invoice_json.h"
#include "store/key_value.h"

namespace ledra {

namespace {

template <class T, class Field>
void overwrite(Field& field, const std::optional<T>& value)
{
    if (value)
        field = *value;
}

/// Reads a list or an object that stands under "result".
template <class Read>
Decoded<void> readResult(const QByteArray& json, const Read& read)
{
    JSONReader reader;
    return reader.read("{\"result\":" + json + '}', [&](JSONValue& root) {
        return root.members([&](std::string_view, JSONValue& value) -> Decoded<void> { return read(value); });
    });
}

} // namespace

Decoded<void> decodeEntry(const JSONMomentKey& key, ImportPatch& patch, JSONValue& value)
{
    std::optional<Timestamp>& field = patch.*key.field;
    if (!value.isText())
        return decodeInto(field, value);
    const Decoded<QString> text = value.text();
    if (!text)
        return std::unexpected(text.error());
    if (const Assigned assigned = assignText(field, *text, {}); !assigned)
        return std::unexpected(DecodingError{DecodingError::Kind::unknownValue, {}, assigned.error()});
    return {};
}

Decoded<std::vector<ImportPatch>> patchListFrom(const QByteArray& json)
{
    std::vector<ImportPatch> patches;
    const Decoded<void> decoded =
        readResult(json, [&](JSONValue& value) -> Decoded<void> { return decodeInto(patches, value); });
    return decoded ? Decoded<std::vector<ImportPatch>>(std::move(patches)) : std::unexpected(decoded.error());
}

Decoded<std::vector<std::pair<QString, ImportPatch>>> patchMapFrom(const QByteArray& json)
{
    std::vector<std::pair<QString, ImportPatch>> patches;
    const Decoded<void> decoded = readResult(json, [&](JSONValue& value) -> Decoded<void> {
        return value.members([&](std::string_view id, JSONValue& patch) -> Decoded<void> {
            patches.emplace_back(QString::fromUtf8(id.data(), static_cast<qsizetype>(id.size())),
                                 ImportPatch());
            return decodeInto(patches.back().second, patch);
        });
    });
    if (!decoded)
        return std::unexpected(decoded.error());
    return patches;
}

void applyContent(const ImportPatch& patch, Invoice& invoice, IdSource& ids)
{
    overwrite(invoice.name, patch.recipient.name);
    overwrite(invoice.email, patch.recipient.email);
    overwrite(invoice.addressLineOne, patch.recipient.lineOne);
    overwrite(invoice.addressLineTwo, patch.recipient.lineTwo);
    overwrite(invoice.addressPostcode, patch.recipient.postcode);
    overwrite(invoice.addressCity, patch.recipient.city);
    overwrite(invoice.addressState, patch.recipient.state);
    overwrite(invoice.addressCountry, patch.recipient.country);
    overwrite(invoice.items, patch.items);
    overwrite(invoice.currency, patch.currency);
    overwrite(invoice.date, patch.date);
    overwrite(invoice.serviceDateStart, patch.serviceDateStart);
    overwrite(invoice.serviceDateEnd, patch.serviceDateEnd);
    overwrite(invoice.marginalNote, patch.marginalNote);
    completeIds(invoice, ids);
}

void applyStatus(const ImportPatch& patch, Invoice& invoice, Timestamp now)
{
    const bool isNew = patch.status && *patch.status != invoice.status;
    overwrite(invoice.status, patch.status);
    if (isNew || patch.statusDate)
        invoice.statusUpdateDate = patch.statusDate.value_or(now);
}

} // namespace ledra
