#pragma once

#include "model/country.h"
#include "model/currency.h"
#include "model/text_enum.h"
#include "model/timestamp.h"
#include "store/json_reader.h"
#include "store/ordered_json_encoder.h"

#include <QUuid>

#include <set>
#include <tuple>
#include <vector>

namespace ledra {

/// A key of a JSON object and the stored field that it holds. An optional field is written only when present;
/// on reading, a missing key or null leaves the field as it was.
template <class Owner, class Field>
struct JSONKey
{
    std::string_view name;
    Field Owner::* field;
};

template <class Owner, class Field>
JSONKey(std::string_view, Field Owner::*) -> JSONKey<Owner, Field>;

// Keys of a special kind. What they do not say themselves they do as a JSONKey does.

/// A key without which a file cannot be read.
template <class Owner, class Field>
struct JSONRequiredKey : JSONKey<Owner, Field>
{
    static constexpr bool required = true;
};

template <class Owner, class Field>
JSONRequiredKey(JSONKey<Owner, Field>) -> JSONRequiredKey<Owner, Field>;

/// A number that is written only when it is greater than zero.
template <class Owner>
struct JSONPositiveKey : JSONKey<Owner, double>
{};

template <class Owner>
JSONPositiveKey(JSONKey<Owner, double>) -> JSONPositiveKey<Owner>;

/// A calendar day as "2026-03-05". What is no such day leaves the field as it was.
template <class Owner>
struct JSONDayKey : JSONKey<Owner, QDate>
{};

template <class Owner>
JSONDayKey(JSONKey<Owner, QDate>) -> JSONDayKey<Owner>;

/// A nested object whose keys hold fields of the same record. It must be present on reading if it is
/// required.
template <class... Entries>
struct JSONGroup
{
    std::string_view name;
    bool required;
    std::tuple<Entries...> entries;
};

template <class... Entries>
constexpr JSONGroup<Entries...> requiredGroup(std::string_view name, Entries... entries)
{
    return {name, true, {entries...}};
}

template <class... Entries>
constexpr JSONGroup<Entries...> optionalGroup(std::string_view name, Entries... entries)
{
    return {name, false, {entries...}};
}

/// The keys of a record's file in the order in which they are written. Each record specialises this once, as
/// a std::tuple of JSONKey and JSONGroup; writing and reading both follow it.
template <class T>
inline constexpr std::nullptr_t jsonSchema = nullptr;

template <class T>
concept HasJSONSchema = !std::is_same_v<decltype(jsonSchema<T>), const std::nullptr_t>;

// ---- writing

template <class T, class Field>
void encodeEntry(const JSONKey<T, Field>& key, const T& record, KeyedEncodingContainer& container)
{
    if constexpr (requires { (record.*key.field).has_value(); })
        container.encodeIfPresent(key.name, record.*key.field);
    else
        container.encode(key.name, record.*key.field);
}

template <class T>
void encodeEntry(const JSONPositiveKey<T>& key, const T& record, KeyedEncodingContainer& container)
{
    if (record.*key.field > 0)
        container.encode(key.name, record.*key.field);
}

template <class T>
void encodeEntry(const JSONDayKey<T>& key, const T& record, KeyedEncodingContainer& container)
{
    container.encode(key.name, dayText(record.*key.field));
}

template <class T, class... Entries>
void encodeEntry(const JSONGroup<Entries...>& group, const T& record, KeyedEncodingContainer& container)
{
    KeyedEncodingContainer nested = container.nestedKeyedContainer(group.name);
    std::apply([&](const auto&... entry) { (encodeEntry(entry, record, nested), ...); }, group.entries);
}

/// Puts the record's keys into a container that the caller may go on filling.
template <HasJSONSchema T>
void encodeMembers(const T& record, KeyedEncodingContainer& container)
{
    std::apply([&](const auto&... entry) { (encodeEntry(entry, record, container), ...); }, jsonSchema<T>);
}

template <HasJSONSchema T>
void encode(const T& record, JSONEncoderState& state)
{
    KeyedEncodingContainer container = state.keyedContainer();
    encodeMembers(record, container);
}

/// The text of a data file: pretty-printed, in the key order of the schema, dates as seconds.
template <HasJSONSchema T>
QByteArray fileText(const T& record)
{
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = {JSONFormatting::prettyPrinted};
    return encoder.encode(record).value(); // a record with a schema always is an object
}

inline JSONNode scalarNode(const Country& country)
{
    return scalarNode(country.code);
}

inline JSONNode scalarNode(const Currency& currency)
{
    return scalarNode(currency.code);
}

// ---- reading

Decoded<void> decodeInto(QString& field, JSONValue& value);
Decoded<void> decodeInto(double& field, JSONValue& value);
Decoded<void> decodeInto(std::int64_t& field, JSONValue& value);
Decoded<void> decodeInto(bool& field, JSONValue& value);
Decoded<void> decodeInto(QUuid& field, JSONValue& value);
Decoded<void> decodeInto(Country& field, JSONValue& value);
Decoded<void> decodeInto(Currency& field, JSONValue& value);

/// Takes both date forms: a number of seconds or ISO 8601 text.
Decoded<void> decodeInto(Timestamp& field, JSONValue& value);

/// Takes a day's text; leaves the field alone for anything else.
Decoded<void> decodeDayIfReadable(QDate& field, JSONValue& value);

std::unexpected<DecodingError> unknownValue(const QString& text);
std::unexpected<DecodingError> missingKey(std::string_view key);

template <TextEnum E>
Decoded<void> decodeInto(E& field, JSONValue& value)
{
    Decoded<QString> text = value.text();
    if (!text)
        return std::unexpected(text.error());
    const std::optional<E> found = enumFromRawValue<E>(text->toStdString());
    if (!found)
        return unknownValue(*text);
    field = *found;
    return {};
}

template <class T>
Decoded<void> decodeInto(std::optional<T>& field, JSONValue& value)
{
    T present{};
    Decoded<void> decoded = decodeInto(present, value);
    if (decoded)
        field = std::move(present);
    return decoded;
}

template <class E>
Decoded<void> decodeInto(std::set<E>& field, JSONValue& value)
{
    field.clear();
    return value.elements([&](JSONValue& element) -> Decoded<void> {
        E present{};
        Decoded<void> decoded = decodeInto(present, element);
        if (decoded)
            field.insert(present);
        return decoded;
    });
}

template <class T, class Entries>
Decoded<void> decodeMembers(T& record, JSONValue& value, const Entries& entries);

template <HasJSONSchema T>
Decoded<void> decodeInto(T& record, JSONValue& value)
{
    return decodeMembers(record, value, jsonSchema<T>);
}

template <class T>
Decoded<void> decodeInto(std::vector<T>& field, JSONValue& value)
{
    field.clear();
    return value.elements([&](JSONValue& element) { return decodeInto(field.emplace_back(), element); });
}

template <class T, class Field>
Decoded<void> decodeEntry(const JSONKey<T, Field>& key, T& record, JSONValue& value)
{
    return decodeInto(record.*key.field, value);
}

template <class T>
Decoded<void> decodeEntry(const JSONDayKey<T>& key, T& record, JSONValue& value)
{
    return decodeDayIfReadable(record.*key.field, value);
}

template <class T, class... Entries>
Decoded<void> decodeEntry(const JSONGroup<Entries...>& group, T& record, JSONValue& value)
{
    return decodeMembers(record, value, group.entries);
}

/// The entries of an object, found by their keys. Files are written in the order of the entries, so that the
/// one behind the last is tried first.
template <class T, class Entries>
class EntryTable
{
public:
    explicit EntryTable(const Entries& entries) : entries_(entries) {}

    /// The entry's position; `count` for a key that is none's.
    std::size_t find(std::string_view key)
    {
        for (std::size_t tried = 0; tried < count; ++tried) {
            const std::size_t position = next_;
            next_ = position + 1 < count ? position + 1 : 0;
            if (names[position](entries_) == key)
                return position;
        }
        return count;
    }

    Decoded<void> read(std::size_t position, T& record, JSONValue& value)
    {
        seen_[position] = true;
        return readers[position](entries_, record, value);
    }

    /// Says which required entry has not been read.
    Decoded<void> checkRequired() const
    {
        for (std::size_t position = 0; position < count; ++position) {
            if (required[position](entries_) && !seen_[position])
                return missingKey(names[position](entries_));
        }
        return {};
    }

    static constexpr std::size_t count = std::tuple_size_v<Entries>;

private:
    template <class Result, class... Arguments>
    using Function = Result (*)(const Entries&, Arguments...);

    template <std::size_t position>
    static constexpr bool isRequired(const Entries& entries)
    {
        if constexpr (requires { std::get<position>(entries).required; })
            return std::get<position>(entries).required;
        return false;
    }

    static constexpr auto names = []<std::size_t... p>(std::index_sequence<p...>) {
        return std::array<Function<std::string_view>, count>{
            [](const Entries& entries) { return std::get<p>(entries).name; }...};
    }(std::make_index_sequence<count>{});

    static constexpr auto required = []<std::size_t... p>(std::index_sequence<p...>) {
        return std::array<Function<bool>, count>{isRequired<p>...};
    }(std::make_index_sequence<count>{});

    static constexpr auto readers = []<std::size_t... p>(std::index_sequence<p...>) {
        return std::array<Function<Decoded<void>, T&, JSONValue&>, count>{
            [](const Entries& entries, T& record, JSONValue& value) {
                return decodeEntry(std::get<p>(entries), record, value);
            }...};
    }(std::make_index_sequence<count>{});

    const Entries& entries_;
    std::size_t next_ = 0;
    std::array<bool, count> seen_{};
};

template <class T, class Entries>
Decoded<void> decodeMembers(T& record, JSONValue& value, const Entries& entries)
{
    EntryTable<T, Entries> table(entries);
    Decoded<void> result = value.members([&](std::string_view key, JSONValue& member) -> Decoded<void> {
        const std::size_t position = table.find(key);
        if (position == table.count)
            return member.skip();
        if (const Decoded<bool> null = member.isNull(); !null || *null)
            return null ? Decoded<void>() : std::unexpected(null.error());
        return table.read(position, record, member);
    });
    return result ? table.checkRequired() : result;
}

/// Reads a document into a record that already holds its new-record values.
template <HasJSONSchema T>
Decoded<void> decodeDocument(T& record, const QByteArray& document, JSONReader& reader)
{
    return reader.read(document, [&](JSONValue& root) { return decodeInto(record, root); });
}

} // namespace ledra
