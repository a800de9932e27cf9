#pragma once

#include "store/json_schema.h"

#include <QLocale>
#include <QString>
#include <QStringList>

#include <expected>

namespace ledra {

/// How texts that a user types for a field are read.
struct ValueReading
{
    QLocale locale; ///< a number takes a point, or the comma where this language writes one
};

// Each reads a text into a field, and returns the reason when it cannot. An empty text leaves an optional
// field absent.

using Assigned = std::expected<void, QString>;

/// A decimal number without group separators.
std::expected<double, QString> numberFrom(const QString& text, const ValueReading& reading);

Assigned assignText(QString& field, const QString& text, const ValueReading& reading);
Assigned assignText(double& field, const QString& text, const ValueReading& reading);
Assigned assignText(std::int64_t& field, const QString& text, const ValueReading& reading);
Assigned assignText(bool& field, const QString& text, const ValueReading& reading);
Assigned assignText(QUuid& field, const QString& text, const ValueReading& reading);

/// A day ("2026-03-05", meaning noon of it), or a moment in ISO 8601.
Assigned assignText(Timestamp& field, const QString& text, const ValueReading& reading);

Assigned assignText(QDate& field, const QString& text, const ValueReading& reading);
Assigned assignText(Country& field, const QString& text, const ValueReading& reading);
Assigned assignText(Currency& field, const QString& text, const ValueReading& reading);

/// The raw value, in any case of letters.
template <TextEnum E>
Assigned assignText(E& field, const QString& text, const ValueReading&)
{
    QStringList known;
    for (const EnumText<E>& row : enumTexts<E>) {
        known += QString::fromUtf8(row.rawValue.data(), static_cast<qsizetype>(row.rawValue.size()));
        if (known.back().compare(text, Qt::CaseInsensitive) != 0)
            continue;
        field = row.value;
        return {};
    }
    return std::unexpected(
        QStringLiteral("\"%1\" is none of %2").arg(text, known.join(QStringLiteral(", "))));
}

template <class T>
Assigned assignText(std::optional<T>& field, const QString& text, const ValueReading& reading)
{
    if (text.isEmpty()) {
        field.reset();
        return {};
    }
    T present{};
    Assigned assigned = assignText(present, text, reading);
    if (assigned)
        field = std::move(present);
    return assigned;
}

/// Raw values with commas between them.
template <class E>
Assigned assignText(std::set<E>& field, const QString& text, const ValueReading& reading)
{
    std::set<E> values;
    const QStringList parts = text.split(u',', Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        E value{};
        if (auto assigned = assignText(value, part.trimmed(), reading); !assigned)
            return assigned;
        values.insert(value);
    }
    field = std::move(values);
    return {};
}

std::unexpected<QString> unknownKey(const QString& key);

template <class T, class Entries>
Assigned assignAt(T& record, const QString& key, const QString& text, const Entries& entries,
                  const ValueReading& reading);

/// Elements are named by their position from 0: "items.0.quantity".
template <HasJSONSchema T>
Assigned assignBelow(std::vector<T>& list, const QString& rest, const QString& text,
                     const ValueReading& reading)
{
    bool isNumber = false;
    const qulonglong position = rest.section(u'.', 0, 0).toULongLong(&isNumber);
    if (!isNumber || position >= list.size())
        return std::unexpected(QStringLiteral("there is no entry %1").arg(rest.section(u'.', 0, 0)));
    return assignAt(list[position], rest.section(u'.', 1), text, jsonSchema<T>, reading);
}

template <class T, class Field>
Assigned assignEntry(const JSONKey<T, Field>& key, T& record, const QString& rest, const QString& text,
                     const ValueReading& reading)
{
    if constexpr (requires { assignText(record.*key.field, text, reading); }) {
        if (rest.isEmpty())
            return assignText(record.*key.field, text, reading);
    } else if constexpr (requires { assignBelow(record.*key.field, rest, text, reading); }) {
        if (!rest.isEmpty())
            return assignBelow(record.*key.field, rest, text, reading);
    }
    return std::unexpected(QStringLiteral("this key cannot be set as a whole"));
}

template <class T, class... Entries>
Assigned assignEntry(const JSONGroup<Entries...>& group, T& record, const QString& rest, const QString& text,
                     const ValueReading& reading)
{
    return assignAt(record, rest, text, group.entries, reading);
}

template <class T, class Entries>
Assigned assignAt(T& record, const QString& key, const QString& text, const Entries& entries,
                  const ValueReading& reading)
{
    const std::string first = key.section(u'.', 0, 0).toStdString();
    Assigned result = unknownKey(key);
    const auto tryEntry = [&](const auto& entry) {
        if (entry.name != first)
            return false;
        result = assignEntry(entry, record, key.section(u'.', 1), text, reading);
        return true;
    };
    std::apply([&](const auto&... entry) { (void)(tryEntry(entry) || ...); }, entries);
    return result;
}

/// Sets the field that a dotted path of JSON keys names ("recipient.address.city"). The error is one line
/// that names the key; the record is unchanged then.
template <HasJSONSchema T>
Assigned assignByKey(T& record, const QString& key, const QString& text, const ValueReading& reading)
{
    T changed = record;
    if (const Assigned assigned = assignAt(changed, key, text, jsonSchema<T>, reading); !assigned)
        return std::unexpected(key + QStringLiteral(": ") + assigned.error());
    record = std::move(changed);
    return {};
}

// ---- a record as keys and texts

/// A dotted key and the text of its value, as assignByKey() takes them.
struct KeyText
{
    QString key;
    QString text;
};

/// The members of a record in file order; objects are entered, lists of scalars are joined with commas, and
/// absent members as well as lists of objects are left out.
std::vector<KeyText> keyTexts(const JSONNode& record);

template <HasJSONSchema T>
std::vector<KeyText> keyTexts(const T& record)
{
    const std::optional<JSONNode> node = nodeOf(record, EncodingSettings(), {});
    return node ? keyTexts(*node) : std::vector<KeyText>();
}

} // namespace ledra
