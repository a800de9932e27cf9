#pragma once

#include "model/text_enum.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <tuple>
#include <vector>

namespace ledra {

/// The unit of an extracted item; each case corresponds to the case of Unit with the same name.
enum class ExtractedUnit { piece, hour, day, week, lumpSum };

template <>
inline constexpr std::array enumTexts<ExtractedUnit> = {
    EnumText{ExtractedUnit::piece, "piece", "Piece"},
    EnumText{ExtractedUnit::hour, "hour", "Hour"},
    EnumText{ExtractedUnit::day, "day", "Day"},
    EnumText{ExtractedUnit::week, "week", "Week"},
    EnumText{ExtractedUnit::lumpSum, "lumpSum", "Lump Sum"},
};

/// Whom a text names as the recipient.
struct ExtractedRecipient
{
    std::optional<QString> name;
    std::optional<QString> businessName;
    std::optional<QString> email;
    std::optional<QString> addressLineOne;
    std::optional<QString> addressLineTwo;
    std::optional<QString> postcode;
    std::optional<QString> city;
    std::optional<QString> state;
    std::optional<QString> countryCode;

    friend bool operator==(const ExtractedRecipient&, const ExtractedRecipient&) = default;
};

/// One service or product that a text bills.
struct ExtractedItem
{
    std::optional<QString> description;
    std::optional<double> quantity;
    std::optional<ExtractedUnit> unit;
    std::optional<double> unitPrice;     ///< net
    std::optional<double> vatPercentage; ///< percent

    friend bool operator==(const ExtractedItem&, const ExtractedItem&) = default;
};

/// What a model has found in a text. What the text does not say is absent; nothing of it has been checked
/// against the tables of countries, currencies and days yet.
struct ExtractedInvoice
{
    std::optional<ExtractedRecipient> recipient;
    std::optional<std::vector<ExtractedItem>> items;
    std::optional<QString> note;
    std::optional<QString> reference;
    std::optional<QString> currencyCode;
    std::optional<QString> serviceDateStart; ///< meant to be yyyy-MM-dd
    std::optional<QString> serviceDateEnd;

    friend bool operator==(const ExtractedInvoice&, const ExtractedInvoice&) = default;
};

/// How much of a text is taken: a line, or a paragraph that may have several.
enum class TextLength { line, paragraph };

/// One row of the schema: a key of the answer, the field that it fills and what the model is told about it.
/// Whether it is a text, a number, a unit, a record or a list of records is the type of the field.
template <class Record, class Field>
struct ExtractedField
{
    const char* key;
    std::optional<Field> Record::* field;
    const char* guide; ///< UTF-8
    TextLength length = TextLength::line;
};

template <class Record, class Field>
ExtractedField(const char*, std::optional<Field> Record::*, const char*) -> ExtractedField<Record, Field>;
template <class Record, class Field>
ExtractedField(const char*, std::optional<Field> Record::*, const char*, TextLength)
    -> ExtractedField<Record, Field>;

/// The rows of a record in order. The schema that goes to the model, the reader of its answer and what shows
/// the answer are made from them.
template <class Record>
inline constexpr std::nullptr_t extractedFields = nullptr;

template <>
inline constexpr std::tuple extractedFields<ExtractedRecipient> = {
    ExtractedField{"name", &ExtractedRecipient::name, "The person’s full name, if given."},
    ExtractedField{"businessName", &ExtractedRecipient::businessName,
                   "The company/organization name, if the recipient is a business."},
    ExtractedField{"email", &ExtractedRecipient::email, "Email address, if present."},
    ExtractedField{"addressLineOne", &ExtractedRecipient::addressLineOne,
                   "Street and house number, e.g. 'Hauptstraße 12'."},
    ExtractedField{"addressLineTwo", &ExtractedRecipient::addressLineTwo,
                   "A second address line such as suite, floor, or c/o, if present."},
    ExtractedField{"postcode", &ExtractedRecipient::postcode, "Postal/ZIP code."},
    ExtractedField{"city", &ExtractedRecipient::city, "City/town."},
    ExtractedField{"state", &ExtractedRecipient::state,
                   "State, province, or region, if the country uses one."},
    ExtractedField{"countryCode", &ExtractedRecipient::countryCode,
                   "The country as an ISO 3166-1 alpha-2 code (e.g. DE, US, GB, CH). Infer it from the "
                   "address when it is unambiguous; otherwise omit."},
};

template <>
inline constexpr std::tuple extractedFields<ExtractedItem> = {
    ExtractedField{"description", &ExtractedItem::description,
                   "A concise description of the service or product (line item title).",
                   TextLength::paragraph},
    ExtractedField{"quantity", &ExtractedItem::quantity, "The quantity billed. Defaults to 1 if not stated."},
    ExtractedField{"unit", &ExtractedItem::unit,
                   "The unit the quantity is measured in. Fall back to 'Piece'."},
    ExtractedField{"unitPrice", &ExtractedItem::unitPrice,
                   "The net price per single unit (excluding VAT), as a plain number in the invoice "
                   "currency."},
    ExtractedField{"vatPercentage", &ExtractedItem::vatPercentage,
                   "The VAT/sales-tax percentage for this line (e.g. 19 for 19%). Omit if not stated."},
};

template <>
inline constexpr std::tuple extractedFields<ExtractedInvoice> = {
    ExtractedField{"recipient", &ExtractedInvoice::recipient,
                   "The customer/recipient the invoice is addressed to. Omit entirely if the text contains "
                   "no recipient details."},
    ExtractedField{"items", &ExtractedInvoice::items,
                   "The billed line items (services or products). Omit entirely if the text lists no "
                   "items."},
    ExtractedField{"note", &ExtractedInvoice::note,
                   "A free-form note for the invoice, if the text contains one.", TextLength::paragraph},
    ExtractedField{"reference", &ExtractedInvoice::reference,
                   "A reference, order number, or project reference mentioned in the text."},
    ExtractedField{"currencyCode", &ExtractedInvoice::currencyCode,
                   "The ISO 4217 currency code (e.g. EUR, USD, CHF) if a currency is stated or clearly "
                   "implied. Otherwise omit."},
    ExtractedField{"serviceDateStart", &ExtractedInvoice::serviceDateStart,
                   "Start of the service/delivery period as an ISO date, format yyyy-MM-dd. Omit if no date "
                   "is given."},
    ExtractedField{"serviceDateEnd", &ExtractedInvoice::serviceDateEnd,
                   "End of the service/delivery period as an ISO date, format yyyy-MM-dd. Omit if the "
                   "period is a single day or no end date is given."},
};

/// Calls visit(row) for each row of a record.
template <class Record, class Visit>
void forEachField(Visit visit)
{
    std::apply([&](const auto&... row) { (visit(row), ...); }, extractedFields<Record>);
}

/// An invoice while it arrives: what there is of it so far, and identifiers that stay the same while it
/// grows, so that whoever shows it knows which row is which.
struct PartialInvoice
{
    QUuid id;
    QUuid recipientId;
    std::vector<QUuid> itemIds; ///< one for each item
    ExtractedInvoice fields;
};

} // namespace ledra
