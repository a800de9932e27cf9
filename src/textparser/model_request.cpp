#include "textparser/model_request.h"

#include "textparser/extracted_invoice.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace ledra {

namespace {

// The order of keys counts: models fill in an object in the order of its schema. Qt's own objects sort them.
QByteArray quoted(const QString& text)
{
    return QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).chopped(1).mid(1);
}

QByteArray schemaBody(const QString*)
{
    return R"("type":["string","null"])";
}

QByteArray schemaBody(const double*)
{
    return R"("type":["number","null"])";
}

QByteArray schemaBody(const ExtractedUnit*)
{
    QByteArray cases;
    for (const EnumText<ExtractedUnit>& row : enumTexts<ExtractedUnit>)
        cases += '"' + QByteArray(row.rawValue.data(), static_cast<qsizetype>(row.rawValue.size())) + R"(",)";
    return R"("type":["string","null"],"enum":[)" + cases + "null]";
}

template <class Record>
QByteArray schemaBody(const Record*);
template <class Record>
QByteArray schemaBody(const std::vector<Record>*);

/// What an object of the record consists of.
template <class Record>
QByteArray objectBody()
{
    QByteArray properties;
    QByteArray keys;
    forEachField<Record>([&]<class Field>(const ExtractedField<Record, Field>& row) {
        const QByteArray key = '"' + QByteArray(row.key) + '"';
        properties += key + ":{" + schemaBody(static_cast<const Field*>(nullptr)) + R"(,"description":)" +
                      quoted(QString::fromUtf8(row.guide)) + "},";
        keys += key + ',';
    });
    return R"("properties":{)" + properties.chopped(1) + R"(},"required":[)" + keys.chopped(1) +
           R"(],"additionalProperties":false)";
}

template <class Record>
QByteArray schemaBody(const Record*)
{
    return R"("type":["object","null"],)" + objectBody<Record>();
}

template <class Record>
QByteArray schemaBody(const std::vector<Record>*)
{
    return R"("type":["array","null"],"items":{"type":"object",)" + objectBody<Record>() + '}';
}

QByteArray message(const char* role, const QString& content)
{
    return R"({"role":")" + QByteArray(role) + R"(","content":)" + quoted(content) + '}';
}

} // namespace

QByteArray extractionSchema()
{
    return R"({"type":"object",)" + objectBody<ExtractedInvoice>() + '}';
}

QString extractionInstructions()
{
    return QStringLiteral(
        "You extract invoice details from free-form text such as a pasted email, a note, or an address "
        "block. The text may be in German or English and may contain only a recipient address, only a list "
        "of services, or a complete invoice.\n\n"
        "Rules:\n"
        "- Only extract information that is actually present. Never invent, guess, or fill in placeholder "
        "values. Leave any unknown field empty.\n"
        "- Copy names, addresses, and numbers verbatim; do not translate or reformat them, other than "
        "converting dates to yyyy-MM-dd and using ISO codes where asked.\n"
        "- Interpret prices as net unit prices. Numbers may use a decimal comma (e.g. \"1.234,50\" means "
        "1234.50).\n"
        "- Do not compute totals or taxes — only capture the per-line values that are stated.");
}

QByteArray extractionRequest(const QString& model, const QString& text)
{
    return R"({"model":)" + quoted(model) + R"(,"stream":true,"temperature":0,"messages":[)" +
           message("system", extractionInstructions()) + ',' + message("user", text) +
           R"(],"response_format":{"type":"json_schema","json_schema":{"name":"ExtractedInvoice","strict":true,)"
           R"("schema":)" +
           extractionSchema() + "}}}";
}

} // namespace ledra
