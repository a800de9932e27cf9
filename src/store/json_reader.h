#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <expected>
#include <memory>
#include <string_view>
#include <type_traits>

namespace ledra {

/// Limits for files that come from outside: a note of a thousand pages fits, a mistake or an attack does not.
inline constexpr qsizetype largestRecordFile = qsizetype{64} * 1024 * 1024;
inline constexpr qsizetype longestText = qsizetype{1024} * 1024; ///< UTF-8 bytes of one text
inline constexpr std::int64_t mostElements = 10'000;             ///< of one array
inline constexpr int deepestUnknown = 64;                        ///< levels below a key that no record has

/// Why a document could not be read, and where: the path of keys, such as "recipient.address.city" or
/// "items.3.unit".
struct DecodingError
{
    enum class Kind { notJSON, wrongType, unknownValue, missing, outOfRange, tooLarge };

    Kind kind = Kind::notJSON;
    QString path;
    QString detail;

    /// One line: path and reason.
    QString text() const;
};

template <class T>
using Decoded = std::expected<T, DecodingError>;

/// One value of a JSON document under the reader's cursor. It is strictly typed, read once and in document
/// order; the only leniency is that 14.0 is taken for an integer.
class JSONValue
{
public:
    /// Wraps the parser's own value; made by the reader only.
    explicit JSONValue(void* native) : native_(native) {}

    /// Whether the value is null, which readers take for a missing key.
    Decoded<bool> isNull();

    Decoded<QString> text();
    Decoded<double> number();
    Decoded<std::int64_t> integer();
    Decoded<bool> boolean();
    bool isText();

    /// Reads past a value that nobody asked for, which must be valid JSON all the same.
    Decoded<void> skip();

    /// Calls visit(key, value) for each member of an object; stops at the first error, whose path gets the
    /// key.
    template <class Visit>
    Decoded<void> members(Visit&& visit)
    {
        return visitMembers(MemberVisitor{&visit, [](void* target, std::string_view key, JSONValue& value) {
                                              return (*static_cast<std::remove_reference_t<Visit>*>(target))(
                                                  key, value);
                                          }});
    }

    /// Calls visit(value) for each element of an array; the path of an error gets the position.
    template <class Visit>
    Decoded<void> elements(Visit&& visit)
    {
        const auto ignoringKey = [&visit](std::string_view, JSONValue& value) { return visit(value); };
        using Wrapped = decltype(ignoringKey);
        return visitElements(MemberVisitor{const_cast<std::remove_const_t<Wrapped>*>(&ignoringKey),
                                           [](void* target, std::string_view key, JSONValue& value) {
                                               return (*static_cast<Wrapped*>(target))(key, value);
                                           }});
    }

private:
    struct MemberVisitor
    {
        void* target;
        Decoded<void> (*call)(void* target, std::string_view key, JSONValue& value);
    };

    Decoded<void> visitMembers(MemberVisitor visitor);
    Decoded<void> visitElements(MemberVisitor visitor);

    void* native_;
};

/// Reads whole documents: bounded size, valid UTF-8, an object at the root and nothing after it. Keeps the
/// parser's buffers, so one reader serves many documents.
class JSONReader
{
public:
    JSONReader();
    ~JSONReader();
    JSONReader(const JSONReader&) = delete;
    JSONReader& operator=(const JSONReader&) = delete;

    /// Calls visit(root) and returns its result, or why the document is none.
    template <class Visit>
    Decoded<void> read(const QByteArray& document, Visit&& visit)
    {
        return readDocument(document,
                            {&visit, [](void* target, JSONValue& root) {
                                 return (*static_cast<std::remove_reference_t<Visit>*>(target))(root);
                             }});
    }

private:
    struct RootVisitor
    {
        void* target;
        Decoded<void> (*call)(void* target, JSONValue& root);
    };
    struct Parser;

    Decoded<void> readDocument(const QByteArray& document, RootVisitor visitor);

    std::unique_ptr<Parser> parser_;
};

/// Whether a text is one complete JSON object, whatever it says.
bool isWholeJson(const QByteArray& document);

} // namespace ledra
