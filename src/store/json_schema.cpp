#include "store/json_schema.h"

namespace ledra {

namespace {

template <class Field, class Value>
Decoded<void> assign(Field& field, Decoded<Value> value)
{
    if (!value)
        return std::unexpected(value.error());
    field = std::move(*value);
    return {};
}

} // namespace

std::unexpected<DecodingError> unknownValue(const QString& text)
{
    constexpr qsizetype shown = 40;
    const QString excerpt = text.size() > shown ? text.left(shown) + QStringLiteral("…") : text;
    return std::unexpected(DecodingError{
        DecodingError::Kind::unknownValue, {}, QStringLiteral("unknown value \"%1\"").arg(excerpt)});
}

std::unexpected<DecodingError> missingKey(std::string_view key)
{
    return std::unexpected(DecodingError{DecodingError::Kind::missing,
                                         QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())),
                                         QStringLiteral("missing")});
}

Decoded<void> decodeInto(QString& field, JSONValue& value)
{
    return assign(field, value.text());
}

Decoded<void> decodeInto(double& field, JSONValue& value)
{
    return assign(field, value.number());
}

Decoded<void> decodeInto(std::int64_t& field, JSONValue& value)
{
    return assign(field, value.integer());
}

Decoded<void> decodeInto(bool& field, JSONValue& value)
{
    return assign(field, value.boolean());
}

Decoded<void> decodeInto(Country& field, JSONValue& value)
{
    return assign(field.code, value.text());
}

Decoded<void> decodeInto(Currency& field, JSONValue& value)
{
    return assign(field.code, value.text());
}

Decoded<void> decodeInto(QUuid& field, JSONValue& value)
{
    const Decoded<QString> text = value.text();
    if (!text)
        return std::unexpected(text.error());
    constexpr qsizetype length = 36; // without braces, which QUuid would take as well
    const QUuid id = text->size() == length ? QUuid::fromString(*text) : QUuid();
    if (id.isNull())
        return unknownValue(*text);
    field = id;
    return {};
}

Decoded<void> decodeDayIfReadable(QDate& field, JSONValue& value)
{
    if (!value.isText())
        return value.skip();
    const Decoded<QString> text = value.text();
    if (!text)
        return std::unexpected(text.error());
    if (const std::optional<QDate> day = dayFromText(*text))
        field = *day;
    return {};
}

Decoded<void> decodeInto(Timestamp& field, JSONValue& value)
{
    if (value.isText()) {
        const Decoded<QString> text = value.text();
        if (!text)
            return std::unexpected(text.error());
        const std::optional<Timestamp> moment = Timestamp::fromIso8601(*text);
        if (!moment)
            return unknownValue(*text);
        field = *moment;
    } else {
        const Decoded<double> seconds = value.number();
        if (!seconds)
            return std::unexpected(seconds.error());
        field = Timestamp(*seconds);
    }
    if (!field.isInCalendarRange())
        return std::unexpected(DecodingError{
            DecodingError::Kind::outOfRange, {}, QStringLiteral("a date outside the years 1 to 9999")});
    return {};
}

} // namespace ledra
