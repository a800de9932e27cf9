#include "store/ordered_json_encoder.h"

#include "model/clock.h"

#include <QtGlobal>

namespace ledra {

namespace {

std::shared_ptr<JSONObjectStorage> newObject()
{
    constexpr std::size_t usualPairs = 16;
    auto storage = std::make_shared<JSONObjectStorage>();
    storage->pairs.reserve(usualPairs);
    return storage;
}

} // namespace

QString errorText(EncodingError error)
{
    switch (error) {
    case EncodingError::noValue:
        break;
    }
    return QStringLiteral("The value did not encode anything");
}

JSONNode scalarNode(const QString& value)
{
    const QByteArray utf8 = value.toUtf8();
    return std::string(utf8.constData(), static_cast<std::size_t>(utf8.size()));
}

JSONNode scalarNode(std::string_view value)
{
    return std::string(value);
}

JSONNode scalarNode(const QUuid& value)
{
    return scalarNode(idText(value));
}

JSONNode scalarNode(const Timestamp& value, DateForm form)
{
    if (form == DateForm::iso8601)
        return scalarNode(value.toIso8601());
    return scalarNode(value.secondsSinceReference());
}

KeyedEncodingContainer JSONEncoderState::keyedContainer()
{
    auto storage = newObject();
    node_ = storage;
    return {*settings_, path_, std::move(storage)};
}

UnkeyedEncodingContainer JSONEncoderState::unkeyedContainer()
{
    auto storage = std::make_shared<JSONArrayStorage>();
    node_ = storage;
    return {*settings_, path_, std::move(storage)};
}

SingleValueEncodingContainer JSONEncoderState::singleValueContainer()
{
    return SingleValueEncodingContainer(*this);
}

void EncodingContainer::superEncoder()
{
    qFatal("superEncoder is not supported by OrderedJSONEncoder");
}

CodingPath EncodingContainer::pathTo(std::string_view key) const
{
    CodingPath path;
    path.reserve(path_.size() + 1);
    path = path_;
    path.emplace_back(key);
    return path;
}

KeyedEncodingContainer KeyedEncodingContainer::nestedKeyedContainer(std::string_view key)
{
    auto storage = newObject();
    append(key, storage);
    return {*settings_, pathTo(key), std::move(storage)};
}

UnkeyedEncodingContainer KeyedEncodingContainer::nestedUnkeyedContainer(std::string_view key)
{
    auto storage = std::make_shared<JSONArrayStorage>();
    append(key, storage);
    return {*settings_, pathTo(key), std::move(storage)};
}

KeyedEncodingContainer UnkeyedEncodingContainer::nestedKeyedContainer()
{
    auto storage = newObject();
    CodingPath path = pathTo(position());
    storage_->items.emplace_back(storage);
    return {*settings_, std::move(path), std::move(storage)};
}

UnkeyedEncodingContainer UnkeyedEncodingContainer::nestedUnkeyedContainer()
{
    auto storage = std::make_shared<JSONArrayStorage>();
    CodingPath path = pathTo(position());
    storage_->items.emplace_back(storage);
    return {*settings_, std::move(path), std::move(storage)};
}

std::expected<QByteArray, EncodingError>
OrderedJSONEncoder::printedText(const std::optional<JSONNode>& node) const
{
    if (!node)
        return std::unexpected(EncodingError::noValue);
    const std::string text = printed(*node, outputFormatting.contains(JSONFormatting::prettyPrinted)) + '\n';
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace ledra
