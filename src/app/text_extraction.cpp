#include "app/text_extraction.h"

#include <QLocale>

namespace ledra {

namespace {

using Texts = std::vector<ExtractedText>;

void append(Texts& texts, const QString& path, const QString& value)
{
    texts.push_back({path, value, ExtractedKind::text});
}

void append(Texts& texts, const QString& path, double value)
{
    texts.push_back(
        {path, QString::number(value, 'f', QLocale::FloatingPointShortest), ExtractedKind::number});
}

void append(Texts& texts, const QString& path, ExtractedUnit value)
{
    texts.push_back({path, displayText(value), ExtractedKind::unit});
}

template <class Record>
void append(Texts& texts, const QString& path, const std::vector<Record>& records);

template <class Record>
void append(Texts& texts, const QString& path, const Record& record)
{
    forEachField<Record>([&](const auto& row) {
        const QString key = QString::fromLatin1(row.key);
        if (record.*row.field)
            append(texts, path.isEmpty() ? key : path + u'.' + key, *(record.*row.field));
    });
}

template <class Record>
void append(Texts& texts, const QString& path, const std::vector<Record>& records)
{
    for (std::size_t i = 0; i < records.size(); ++i)
        append(texts, path + u'.' + QString::number(i), records[i]);
}

bool take(const QString& text, std::optional<QString>& field)
{
    field = text.isEmpty() ? std::nullopt : std::optional(text);
    return true;
}

bool take(const QString& text, std::optional<double>& field)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber && !text.isEmpty())
        return false;
    field = text.isEmpty() ? std::nullopt : std::optional(number);
    return true;
}

bool take(const QString& text, std::optional<ExtractedUnit>& field)
{
    const auto& rows = enumTexts<ExtractedUnit>;
    const auto row = std::ranges::find_if(
        rows, [&](const EnumText<ExtractedUnit>& each) { return displayText(each.value) == text; });
    if (row == rows.end() && !text.isEmpty())
        return false;
    field = text.isEmpty() ? std::nullopt : std::optional(row->value);
    return true;
}

/// The field at the path that begins with the first of the keys.
template <class Record>
bool setIn(Record& record, QStringList path, const QString& text)
{
    if (path.isEmpty())
        return false;
    const QString key = path.takeFirst();
    bool isSet = false;
    forEachField<Record>([&]<class Field>(const ExtractedField<Record, Field>& row) {
        std::optional<Field>& field = record.*row.field;
        if (key != QLatin1StringView(row.key) || !field)
            return;
        if constexpr (requires { take(text, field); }) {
            isSet = path.isEmpty() && take(text, field);
        } else if constexpr (requires { field->size(); }) {
            const std::size_t place = path.isEmpty() ? field->size() : path.takeFirst().toULongLong();
            isSet = place < field->size() && setIn((*field)[place], path, text);
        } else {
            isSet = setIn(*field, path, text);
        }
    });
    return isSet;
}

} // namespace

TextParserSetting textParserSetting(const Settings& settings)
{
    const auto text = [&](const char* key) {
        return settings.text(QString::fromLatin1(key)).value_or(QString());
    };
    return {text("textParserEndpoint"), text("textParserModel"),
            std::chrono::seconds(settings.number("textParserTimeout"))};
}

std::vector<ExtractedText> extractedTexts(const ExtractedInvoice& invoice)
{
    Texts texts;
    append(texts, QString(), invoice);
    return texts;
}

bool setExtractedText(ExtractedInvoice& invoice, const QString& path, const QString& text)
{
    return setIn(invoice, path.split(u'.'), text);
}

} // namespace ledra
