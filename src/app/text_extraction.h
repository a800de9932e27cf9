#pragma once

#include "app/settings.h"
#include "store/json_schema.h"
#include "textparser/text_parser.h"

namespace ledra {

/// Which model the settings name.
TextParserSetting textParserSetting(const Settings& settings);

/// An extracted text as JSON: its keys in order, without the absent ones.
template <class Record>
    requires(!std::same_as<std::remove_cvref_t<decltype(extractedFields<Record>)>, std::nullptr_t>)
void encode(const Record& record, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    forEachField<Record>([&](const auto& row) { object.encodeIfPresent(row.key, record.*row.field); });
}

/// What a field of an extracted text holds.
enum class ExtractedKind { text, number, unit };

/// A field of an extracted text with its path, such as "items.0.unitPrice", and its value as text.
struct ExtractedText
{
    QString path;
    QString text; ///< a number has a decimal point and no marks between thousands
    ExtractedKind kind = ExtractedKind::text;
};

/// All fields that are present, in order.
std::vector<ExtractedText> extractedTexts(const ExtractedInvoice& invoice);

/// Gives a field that is present another value, in the form in which extractedTexts() tells it; an empty one
/// takes the field away. False, and nothing is changed, when the text is no value of that field.
bool setExtractedText(ExtractedInvoice& invoice, const QString& path, const QString& text);

} // namespace ledra
