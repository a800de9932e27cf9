#include "textparser/answer_reader.h"

#include "textparser/partial_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace ledra {

namespace {

/// Why a value cannot be used, and where it stands, such as "items.3.unit".
struct Problem
{
    QString path;
    QString text;

    QString line() const { return path.isEmpty() ? text : path + QStringLiteral(": ") + text; }
};

using Read = std::expected<void, Problem>;

constexpr qsizetype longestQuote = 60; ///< of what a message quotes from an answer

std::unexpected<Problem> problem(const QString& text)
{
    return std::unexpected(Problem{{}, text});
}

std::unexpected<Problem> wrongType(const char* wanted)
{
    return problem(QStringLiteral("is not ") + QString::fromLatin1(wanted));
}

std::unexpected<Problem> below(const QString& key, const Problem& inner)
{
    return std::unexpected(Problem{inner.path.isEmpty() ? key : key + u'.' + inner.path, inner.text});
}

// One function for each kind of field; the rest of the row says how much is taken.

Read take(QString& field, const QJsonValue& value, TextLength length)
{
    if (!value.isString())
        return wrongType("a text");
    const qsizetype most = length == TextLength::line ? longestLine : longestParagraph;
    field = cleanText(value.toString(), length).value_or(QString());
    if (field.size() > most)
        return problem(QStringLiteral("is longer than %1 characters").arg(most));
    return {};
}

Read take(double& field, const QJsonValue& value, TextLength)
{
    if (!value.isDouble())
        return wrongType("a number");
    field = value.toDouble();
    if (!std::isfinite(field) || std::abs(field) > largestNumber)
        return problem(QStringLiteral("is out of range"));
    return {};
}

Read take(ExtractedUnit& field, const QJsonValue& value, TextLength)
{
    if (!value.isString())
        return wrongType("a text");
    const std::optional<ExtractedUnit> unit = enumFromRawValue<ExtractedUnit>(value.toString().toStdString());
    if (!unit) {
        const QString shown =
            cleanText(value.toString().left(longestQuote), TextLength::line).value_or(QString());
        return problem(QStringLiteral("Unexpected rawValue \"%1\" for ExtractedUnit").arg(shown));
    }
    field = *unit;
    return {};
}

template <class Record>
Read take(std::vector<Record>& records, const QJsonValue& value, TextLength length);

template <class Record>
Read take(Record& record, const QJsonValue& value, TextLength)
{
    if (!value.isObject())
        return wrongType("an object");
    const QJsonObject object = value.toObject();
    Read read;
    forEachField<Record>([&]<class Field>(const ExtractedField<Record, Field>& row) {
        const QString key = QString::fromLatin1(row.key);
        const QJsonValue found = object.value(key);
        if (!read || found.isNull() || found.isUndefined())
            return;
        Field field{};
        read = take(field, found, row.length);
        if (!read)
            read = below(key, read.error());
        else if (field != Field{} || !std::is_same_v<Field, QString>) // an empty text says nothing
            record.*row.field = std::move(field);
    });
    return read;
}

template <class Record>
Read take(std::vector<Record>& records, const QJsonValue& value, TextLength length)
{
    if (!value.isArray())
        return wrongType("a list");
    const QJsonArray list = value.toArray();
    if (list.size() > mostItems)
        return problem(QStringLiteral("is longer than %1 items").arg(mostItems));
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (const Read read = take(records.emplace_back(), list.at(i), length); !read)
            return below(QString::number(i), read.error());
    }
    return {};
}

std::expected<ExtractedInvoice, QString> readObject(const QString& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8(), &error);
    if (!document.isObject())
        return std::unexpected(QStringLiteral("the model’s answer is not valid JSON"));
    ExtractedInvoice invoice;
    if (const Read read = take(invoice, QJsonValue(document.object()), TextLength::line); !read)
        return std::unexpected(QStringLiteral("the model’s answer cannot be used: ") + read.error().line());
    return invoice;
}

} // namespace

std::optional<QString> cleanText(const QString& text, TextLength length)
{
    // Half a surrogate pair, which an escape can make, would not survive being saved.
    QString clean = text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
    clean.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& letter : clean) {
        const bool isBreak = letter == u'\n' || letter == u'\r' || letter == QChar::LineSeparator ||
                             letter == QChar::ParagraphSeparator;
        if (isBreak || letter == u'\t')
            letter = isBreak && length == TextLength::paragraph ? u'\n' : u' ';
    }
    clean.removeIf([](QChar letter) { return letter.category() == QChar::Other_Control && letter != u'\n'; });
    clean = clean.trimmed();
    return clean.isEmpty() ? std::nullopt : std::optional(clean);
}

std::expected<ExtractedInvoice, QString> readAnswer(const QString& answer)
{
    const QString json = objectWithin(answer);
    if (!json.isEmpty())
        return readObject(json);
    return std::unexpected(completedObject(answer).isEmpty()
                               ? QStringLiteral("the model’s answer holds no JSON")
                               : QStringLiteral("the model’s answer is not valid JSON"));
}

std::optional<ExtractedInvoice> readBeginning(const QString& answer)
{
    const std::expected<ExtractedInvoice, QString> read = readObject(completedObject(answer));
    return read ? std::optional(*read) : std::nullopt;
}

} // namespace ledra
