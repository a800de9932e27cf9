#pragma once

#include "model/clock.h"
#include "model/invoice.h"
#include "store/json_schema.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace ledra {

/// What an importing or updating plugin returns for an invoice. Fields that are there overwrite the
/// invoice's.
struct ImportPatch
{
    struct Recipient
    {
        std::optional<QString> name;
        std::optional<QString> email;
        std::optional<QString> lineOne;
        std::optional<QString> lineTwo;
        std::optional<QString> postcode;
        std::optional<QString> city;
        std::optional<QString> state;
        std::optional<Country> country;
    };

    std::optional<QString> number; ///< of an imported invoice, as it is to be shown
    Recipient recipient;
    std::optional<std::vector<Invoice::Item>> items;
    std::optional<Currency> currency;
    std::optional<Timestamp> date;
    std::optional<Timestamp> serviceDateStart;
    std::optional<Timestamp> serviceDateEnd;
    std::optional<QString> marginalNote;
    std::optional<Status> status;
    std::optional<Timestamp> statusDate;
};

// clang-format off: one line a key
template <>
inline constexpr std::tuple jsonSchema<ImportPatch::Recipient> = {
    JSONKey{"name", &ImportPatch::Recipient::name},
    JSONKey{"email", &ImportPatch::Recipient::email},
    optionalGroup("address",
                  JSONKey{"lineOne", &ImportPatch::Recipient::lineOne},
                  JSONKey{"lineTwo", &ImportPatch::Recipient::lineTwo},
                  JSONKey{"postcode", &ImportPatch::Recipient::postcode},
                  JSONKey{"city", &ImportPatch::Recipient::city},
                  JSONKey{"state", &ImportPatch::Recipient::state},
                  JSONKey{"country", &ImportPatch::Recipient::country}),
};

/// A moment as data files hold it, or a day ("2026-03-05"), which means noon of it.
struct JSONMomentKey : JSONKey<ImportPatch, std::optional<Timestamp>>
{};
Decoded<void> decodeEntry(const JSONMomentKey& key, ImportPatch& patch, JSONValue& value);

template <>
inline constexpr std::tuple jsonSchema<ImportPatch> = {
    JSONKey{"number", &ImportPatch::number},
    JSONKey{"recipient", &ImportPatch::recipient},
    JSONKey{"items", &ImportPatch::items},
    JSONKey{"currency", &ImportPatch::currency},
    JSONMomentKey{{"date", &ImportPatch::date}},
    JSONMomentKey{{"serviceDateStart", &ImportPatch::serviceDateStart}},
    JSONMomentKey{{"serviceDateEnd", &ImportPatch::serviceDateEnd}},
    JSONKey{"marginalNote", &ImportPatch::marginalNote},
    JSONKey{"status", &ImportPatch::status},
    JSONMomentKey{{"statusDate", &ImportPatch::statusDate}},
};
// clang-format on

/// What an import returns: a list of patches, one for each new invoice.
[[nodiscard]] Decoded<std::vector<ImportPatch>> patchListFrom(const QByteArray& json);

/// What an update returns: an object from ids to patches.
[[nodiscard]] Decoded<std::vector<std::pair<QString, ImportPatch>>> patchMapFrom(const QByteArray& json);

/// Overwrites what the patch holds, status aside. Items get the ids that they lack.
void applyContent(const ImportPatch& patch, Invoice& invoice, IdSource& ids);

/// Sets the status, as of `now` where the patch has no date for it.
void applyStatus(const ImportPatch& patch, Invoice& invoice, Timestamp now);

} // namespace ledra
