#include "app/text_extraction.h"

#include <QLocale>

namespace ledra {

namespace {

using Texts = std::vector<ExtractedText>;

void append(Texts& texts, const QString& path, const QString& value)
{
    texts.push_back({path, value});
}

void append(Texts& texts, const QString& path, double value)
{
    texts.push_back({path, QString::number(value, 'f', QLocale::FloatingPointShortest)});
}

void append(Texts& texts, const QString& path, ExtractedUnit value)
{
    texts.push_back({path, displayText(value)});
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

} // namespace ledra
