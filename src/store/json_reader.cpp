#include "store/json_reader.h"

#include <simdjson.h>

#include <cmath>
#include <cstring>
#include <vector>

namespace ledra {

namespace {

namespace ondemand = simdjson::ondemand;
using Kind = DecodingError::Kind;

DecodingError failure(Kind kind, QString detail)
{
    return {kind, {}, std::move(detail)};
}

std::unexpected<DecodingError> unexpected(Kind kind, QString detail)
{
    return std::unexpected(failure(kind, std::move(detail)));
}

std::unexpected<DecodingError> malformed(simdjson::error_code code)
{
    return unexpected(
        Kind::notJSON,
        QStringLiteral("not valid JSON (%1)").arg(QString::fromUtf8(simdjson::error_message(code))));
}

QString nameOf(ondemand::json_type type)
{
    switch (type) {
    case ondemand::json_type::array:
        return QStringLiteral("a list");
    case ondemand::json_type::object:
        return QStringLiteral("an object");
    case ondemand::json_type::number:
        return QStringLiteral("a number");
    case ondemand::json_type::string:
        return QStringLiteral("a text");
    case ondemand::json_type::boolean:
        return QStringLiteral("true or false");
    case ondemand::json_type::null:
        return QStringLiteral("null");
    }
    return {};
}

/// Checks the type by the value's first character, before anything of it is consumed.
Decoded<void> require(ondemand::value& value, ondemand::json_type wanted)
{
    ondemand::json_type type{};
    if (const auto error = value.type().get(type))
        return malformed(error);
    if (type == wanted)
        return {};
    return unexpected(Kind::wrongType,
                      QStringLiteral("expected %1, found %2").arg(nameOf(wanted), nameOf(type)));
}

ondemand::value& valueOf(void* native)
{
    return *static_cast<ondemand::value*>(native);
}

DecodingError below(std::string_view key, DecodingError error)
{
    QString name = QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
    error.path = error.path.isEmpty() ? name : name + u'.' + error.path;
    return error;
}

simdjson::error_code skipScalar(ondemand::value& value, ondemand::json_type type)
{
    switch (type) {
    case ondemand::json_type::number:
        return value.get_double().error();
    case ondemand::json_type::string:
        return value.get_string().error();
    case ondemand::json_type::boolean:
        return value.get_bool().error();
    default:
        return value.is_null().error();
    }
}

Decoded<void> skipValue(ondemand::value& value, int depth);

template <class Container>
Decoded<void> skipEntries(simdjson::simdjson_result<Container> result, int depth)
{
    Container container;
    if (const auto error = std::move(result).get(container))
        return malformed(error);
    if (depth == deepestUnknown)
        return unexpected(Kind::tooLarge, QStringLiteral("nested more than %1 levels deep").arg(depth));
    for (auto entry : container) {
        ondemand::value value;
        simdjson::error_code error{};
        if constexpr (std::is_same_v<Container, ondemand::object>)
            error = std::move(entry.value()).get(value);
        else
            error = std::move(entry).get(value);
        if (error)
            return malformed(error);
        if (Decoded<void> skipped = skipValue(value, depth + 1); !skipped)
            return skipped;
    }
    return {};
}

/// The parser passes over what is not asked for without looking at it; this looks.
Decoded<void> skipValue(ondemand::value& value, int depth)
{
    ondemand::json_type type{};
    if (const auto error = value.type().get(type))
        return malformed(error);
    if (type == ondemand::json_type::object)
        return skipEntries(value.get_object(), depth);
    if (type == ondemand::json_type::array)
        return skipEntries(value.get_array(), depth);
    const auto error = skipScalar(value, type);
    return error ? Decoded<void>(malformed(error)) : Decoded<void>();
}

} // namespace

Decoded<void> JSONValue::skip()
{
    return skipValue(valueOf(native_), 0);
}

QString DecodingError::text() const
{
    return path.isEmpty() ? detail : path + QStringLiteral(": ") + detail;
}

Decoded<bool> JSONValue::isNull()
{
    bool null = false;
    if (const auto error = valueOf(native_).is_null().get(null))
        return malformed(error);
    return null;
}

bool JSONValue::isText()
{
    ondemand::json_type type{};
    return !valueOf(native_).type().get(type) && type == ondemand::json_type::string;
}

Decoded<QString> JSONValue::text()
{
    auto& value = valueOf(native_);
    if (auto checked = require(value, ondemand::json_type::string); !checked)
        return std::unexpected(checked.error());
    std::string_view utf8;
    if (const auto error = value.get_string().get(utf8))
        return malformed(error);
    const auto size = static_cast<qsizetype>(utf8.size());
    if (size > longestText)
        return unexpected(
            Kind::tooLarge,
            QStringLiteral("a text of %1 bytes, at most %2 are read").arg(size).arg(longestText));
    return QString::fromUtf8(QByteArrayView(utf8));
}

Decoded<double> JSONValue::number()
{
    auto& value = valueOf(native_);
    if (auto checked = require(value, ondemand::json_type::number); !checked)
        return std::unexpected(checked.error());
    double number = 0;
    if (const auto error = value.get_double().get(number)) {
        if (error == simdjson::NUMBER_ERROR)
            return unexpected(Kind::outOfRange, QStringLiteral("not a number that can be read"));
        return malformed(error);
    }
    return number;
}

Decoded<std::int64_t> JSONValue::integer()
{
    auto& value = valueOf(native_);
    if (auto checked = require(value, ondemand::json_type::number); !checked)
        return std::unexpected(checked.error());
    std::int64_t integer = 0;
    if (!value.get_int64().get(integer))
        return integer;

    const Decoded<double> floating = number();
    if (!floating)
        return std::unexpected(floating.error());
    constexpr double limit = 9.0e15; // every whole double up to here is exact
    if (std::trunc(*floating) != *floating)
        return unexpected(Kind::wrongType, QStringLiteral("expected an integer, found a fraction"));
    if (std::abs(*floating) > limit)
        return unexpected(Kind::outOfRange, QStringLiteral("the integer is too large"));
    return static_cast<std::int64_t>(*floating);
}

Decoded<bool> JSONValue::boolean()
{
    auto& value = valueOf(native_);
    if (auto checked = require(value, ondemand::json_type::boolean); !checked)
        return std::unexpected(checked.error());
    bool boolean = false;
    if (const auto error = value.get_bool().get(boolean))
        return malformed(error);
    return boolean;
}

Decoded<void> JSONValue::visitMembers(MemberVisitor visitor)
{
    auto& value = valueOf(native_);
    if (auto checked = require(value, ondemand::json_type::object); !checked)
        return checked;
    ondemand::object object;
    if (const auto error = value.get_object().get(object))
        return malformed(error);
    for (auto member : object) {
        ondemand::field field;
        if (const auto error = std::move(member).get(field))
            return malformed(error);
        std::string_view key;
        if (const auto error = field.unescaped_key().get(key))
            return malformed(error);
        JSONValue child(&field.value());
        if (auto visited = visitor.call(visitor.target, key, child); !visited)
            return std::unexpected(below(key, visited.error()));
    }
    return {};
}

Decoded<void> JSONValue::visitElements(MemberVisitor visitor)
{
    auto& value = valueOf(native_);
    if (auto checked = require(value, ondemand::json_type::array); !checked)
        return checked;
    ondemand::array array;
    if (const auto error = value.get_array().get(array))
        return malformed(error);
    std::int64_t position = 0;
    for (auto element : array) {
        ondemand::value item;
        if (const auto error = std::move(element).get(item))
            return malformed(error);
        if (position == mostElements)
            return unexpected(Kind::tooLarge, QStringLiteral("more than %1 entries").arg(mostElements));
        JSONValue child(&item);
        if (auto visited = visitor.call(visitor.target, {}, child); !visited)
            return std::unexpected(below(std::to_string(position), visited.error()));
        ++position;
    }
    return {};
}

struct JSONReader::Parser
{
    ondemand::parser parser;
    std::vector<char> padded;
};

JSONReader::JSONReader() : parser_(std::make_unique<Parser>()) {}
JSONReader::~JSONReader() = default;

Decoded<void> JSONReader::readDocument(const QByteArray& document, RootVisitor visitor)
{
    if (document.size() > largestRecordFile)
        return unexpected(Kind::tooLarge, QStringLiteral("larger than %1 MB").arg(largestRecordFile >> 20));
    const auto size = static_cast<std::size_t>(document.size());
    parser_->padded.resize(size + simdjson::SIMDJSON_PADDING);
    std::memcpy(parser_->padded.data(), document.constData(), size);
    std::memset(parser_->padded.data() + size, 0, simdjson::SIMDJSON_PADDING);

    ondemand::document parsed;
    if (const auto error =
            parser_->parser.iterate(parser_->padded.data(), size, parser_->padded.size()).get(parsed))
        return malformed(error);
    ondemand::value root;
    if (const auto error = parsed.get_value().get(root)) {
        if (error == simdjson::SCALAR_DOCUMENT_AS_VALUE)
            return unexpected(Kind::notJSON, QStringLiteral("not a JSON object"));
        return malformed(error);
    }
    JSONValue value(&root);
    if (auto visited = visitor.call(visitor.target, value); !visited)
        return visited;
    if (const char* rest = nullptr; !parsed.current_location().get(rest))
        return unexpected(Kind::notJSON, QStringLiteral("not valid JSON (something follows the object)"));
    return {};
}

bool isWholeJson(const QByteArray& document)
{
    auto skipMember = [](std::string_view, JSONValue& member) { return member.skip(); };
    return JSONReader().read(document, [&](JSONValue& root) { return root.members(skipMember); }).has_value();
}

} // namespace ledra
