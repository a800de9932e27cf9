#pragma once

#include "model/text_enum.h"
#include "store/json_node.h"

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <any>
#include <concepts>
#include <cstdint>
#include <expected>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ledra {

class Timestamp;

/// Where in a document a container stands: object keys, and array positions as decimal texts.
using CodingPath = std::vector<std::string>;

enum class JSONFormatting { prettyPrinted, sortedKeys, withoutEscapingSlashes };

/// How moments are written: as seconds since 2001-01-01T00:00:00Z, the form of data files, or as ISO 8601
/// text, the form inside exported documents.
enum class DateForm { referenceSeconds, iso8601 };

enum class EncodingError { noValue };
QString errorText(EncodingError error);

/// What every container knows of the encoding it belongs to.
struct EncodingSettings
{
    DateForm dateForm = DateForm::referenceSeconds;
    std::map<std::string, std::any> userInfo;
};

class KeyedEncodingContainer;
class UnkeyedEncodingContainer;
class SingleValueEncodingContainer;

/// The encoder as a value sees it that is being encoded: it takes one container from it and fills that.
class JSONEncoderState
{
public:
    JSONEncoderState(const EncodingSettings& settings, CodingPath path)
        : settings_(&settings), path_(std::move(path))
    {}

    KeyedEncodingContainer keyedContainer();
    UnkeyedEncodingContainer unkeyedContainer();
    SingleValueEncodingContainer singleValueContainer();

    const CodingPath& codingPath() const { return path_; }
    const EncodingSettings& settings() const { return *settings_; }

    /// What has been encoded so far; nothing when the value took no container and encoded nothing.
    const std::optional<JSONNode>& node() const { return node_; }
    void setNode(JSONNode node) { node_ = std::move(node); }

private:
    const EncodingSettings* settings_;
    CodingPath path_;
    std::optional<JSONNode> node_;
};

/// A type that describes itself to the encoder: a function `encode(value, state)` beside it.
template <class T>
concept Encodable = requires(const T& value, JSONEncoderState& state) { encode(value, state); };

JSONNode scalarNode(const QString& value);
JSONNode scalarNode(std::string_view value);
JSONNode scalarNode(const QUuid& value);
JSONNode scalarNode(const Timestamp& value, DateForm form);

inline JSONNode scalarNode(bool value)
{
    return value;
}

template <std::integral T>
    requires(!std::same_as<T, bool>)
JSONNode scalarNode(T value)
{
    return JSONNumber{std::to_string(value)};
}

template <std::floating_point T>
JSONNode scalarNode(T value)
{
    return JSONNumber{numberText(value)};
}

template <TextEnum E>
JSONNode scalarNode(E value)
{
    return scalarNode(rawValue(value));
}

/// The node of any value; nothing when the value encoded itself into nothing.
template <class T>
std::optional<JSONNode> nodeOf(const T& value, const EncodingSettings& settings, const CodingPath& path)
{
    if constexpr (std::same_as<T, Timestamp>) {
        return scalarNode(value, settings.dateForm);
    } else if constexpr (requires { scalarNode(value); }) {
        return scalarNode(value);
    } else {
        static_assert(Encodable<T>, "a value needs a function encode(value, state) beside it");
        JSONEncoderState state(settings, path);
        encode(value, state);
        return state.node();
    }
}

/// What all containers share.
class EncodingContainer
{
public:
    const CodingPath& codingPath() const { return path_; }
    const std::map<std::string, std::any>& userInfo() const { return settings_->userInfo; }

    /// Not part of this format; a programming error that ends the program.
    [[noreturn]] static void superEncoder();

protected:
    EncodingContainer(const EncodingSettings& settings, CodingPath path)
        : settings_(&settings), path_(std::move(path))
    {}

    CodingPath pathTo(std::string_view key) const;

    template <class T>
    std::optional<JSONNode> nodeAt(const T& value, std::string_view key) const
    {
        if constexpr (requires { scalarNode(value); })
            return scalarNode(value);
        else
            return nodeOf(value, *settings_, pathTo(key));
    }

    const EncodingSettings* settings_;
    CodingPath path_;
};

/// Fills an object: keys come out in the order of the calls.
class KeyedEncodingContainer : public EncodingContainer
{
public:
    KeyedEncodingContainer(const EncodingSettings& settings, CodingPath path,
                           std::shared_ptr<JSONObjectStorage> storage)
        : EncodingContainer(settings, std::move(path)), storage_(std::move(storage))
    {}

    template <class T>
    void encode(std::string_view key, const T& value)
    {
        if (std::optional<JSONNode> node = nodeAt(value, key))
            append(key, std::move(*node));
    }

    /// Adds nothing, not even the key, for an absent value.
    template <class T>
    void encodeIfPresent(std::string_view key, const std::optional<T>& value)
    {
        if (value)
            encode(key, *value);
    }

    void encodeNil(std::string_view key) { append(key, JSONNull{}); }
    KeyedEncodingContainer nestedKeyedContainer(std::string_view key);
    UnkeyedEncodingContainer nestedUnkeyedContainer(std::string_view key);

private:
    void append(std::string_view key, JSONNode node) { storage_->pairs.emplace_back(key, std::move(node)); }

    std::shared_ptr<JSONObjectStorage> storage_;
};

/// Fills an array.
class UnkeyedEncodingContainer : public EncodingContainer
{
public:
    UnkeyedEncodingContainer(const EncodingSettings& settings, CodingPath path,
                             std::shared_ptr<JSONArrayStorage> storage)
        : EncodingContainer(settings, std::move(path)), storage_(std::move(storage))
    {}

    std::size_t count() const { return storage_->items.size(); }

    template <class T>
    void encode(const T& value)
    {
        if (std::optional<JSONNode> node = nodeAt(value, position()))
            storage_->items.push_back(std::move(*node));
    }

    void encodeNil() { storage_->items.emplace_back(JSONNull{}); }
    KeyedEncodingContainer nestedKeyedContainer();
    UnkeyedEncodingContainer nestedUnkeyedContainer();

private:
    std::string position() const { return std::to_string(count()); }

    std::shared_ptr<JSONArrayStorage> storage_;
};

/// Holds one value.
class SingleValueEncodingContainer : public EncodingContainer
{
public:
    explicit SingleValueEncodingContainer(JSONEncoderState& state)
        : EncodingContainer(state.settings(), state.codingPath()), state_(&state)
    {}

    template <class T>
    void encode(const T& value)
    {
        if (std::optional<JSONNode> node = nodeOf(value, *settings_, path_))
            state_->setNode(std::move(*node));
    }

    void encodeNil() { state_->setNode(JSONNull{}); }

private:
    JSONEncoderState* state_;
};

template <class T>
void encode(const std::vector<T>& values, JSONEncoderState& state)
{
    UnkeyedEncodingContainer container = state.unkeyedContainer();
    for (const T& value : values)
        container.encode(value);
}

/// Sets are written in the order of their elements; sets of cases thereby in case order.
template <class T>
void encode(const std::set<T>& values, JSONEncoderState& state)
{
    UnkeyedEncodingContainer container = state.unkeyedContainer();
    for (const T& value : values)
        container.encode(value);
}

/// The one encoder of all data files. Object keys come out in the order in which a record encodes them, never
/// sorted and never hashed, so that files are stable and diff well.
class OrderedJSONEncoder
{
public:
    /// Only prettyPrinted has an effect.
    std::set<JSONFormatting> outputFormatting;
    std::map<std::string, std::any> userInfo;
    DateForm dateForm = DateForm::referenceSeconds;

    /// The text of a value as UTF-8, ending with one line feed.
    template <class T>
    [[nodiscard]] std::expected<QByteArray, EncodingError> encode(const T& value) const
    {
        const EncodingSettings settings{dateForm, userInfo};
        return printedText(nodeOf(value, settings, {}));
    }

private:
    std::expected<QByteArray, EncodingError> printedText(const std::optional<JSONNode>& node) const;
};

} // namespace ledra
