#include "plugins/plugin_data.h"

#include "model/displayed_number.h"
#include "plugins/plugin.h"
#include "store/invoice_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QUtf8StringView>

namespace ledra {

namespace {

/// A record with its summary.
struct PluginRecord
{
    const Invoice& invoice;
    const Profile& profile;
};

void encode(const PluginRecord& record, JSONEncoderState& state)
{
    KeyedEncodingContainer object = state.keyedContainer();
    encodeMembers(record.invoice, object);
    object.encode("summary", PluginSummary{record.invoice, record.profile});
}

template <class Form>
QByteArray listOf(std::span<const Invoice> invoices, const Profile& profile)
{
    std::vector<Form> forms;
    forms.reserve(invoices.size());
    for (const Invoice& invoice : invoices)
        forms.push_back({invoice, profile});
    return OrderedJSONEncoder().encode(forms).value();
}

} // namespace

void encode(const PluginSummary& summary, JSONEncoderState& state)
{
    const Invoice& invoice = summary.invoice;
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("id", invoice.id);
    object.encode("number", invoice.number);
    object.encode("formattedNumber", displayedNumber(invoice, summary.profile));
    object.encode("status", invoice.status);
    object.encode("total", invoice.total());
    object.encode("currency", invoice.currency);
    object.encode("date", dayText(invoice.date.localDate()));
    object.encode("reference", invoice.reference.value_or(QString()));
    object.encode("name", invoice.name);
}

QByteArray summariesJson(std::span<const Invoice> invoices, const Profile& profile)
{
    return listOf<PluginSummary>(invoices, profile);
}

QByteArray recordJson(const Invoice& invoice, const Profile& profile)
{
    return OrderedJSONEncoder().encode(PluginRecord{invoice, profile}).value();
}

QByteArray recordsJson(std::span<const Invoice> invoices, const Profile& profile)
{
    return listOf<PluginRecord>(invoices, profile);
}

QJsonObject inputObject(const QString& fileName, const QByteArray& content)
{
    const bool isText = QUtf8StringView(content).isValidUtf8();
    return {{QStringLiteral("fileName"), fileName},
            {QStringLiteral("content"),
             isText ? QString::fromUtf8(content) : QString::fromLatin1(content.toBase64())},
            {QStringLiteral("encoding"), isText ? QStringLiteral("utf-8") : QStringLiteral("base64")}};
}

QByteArray argumentList(std::initializer_list<QByteArray> arguments)
{
    return '[' + QByteArrayList(arguments).join(',') + ']';
}

QByteArray jsonText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString plainFileName(const QString& name)
{
    constexpr qsizetype longest = 150;
    QString plain = plainLine(name.section(u'/', -1).section(u'\\', -1), longest);
    while (plain.startsWith(u'.'))
        plain.remove(0, 1);
    return plain;
}

std::expected<PluginOutput, QString> outputFrom(const QByteArray& json, const QString& proposed)
{
    const QJsonValue value = QJsonDocument::fromJson('[' + json + ']').array().at(0);
    if (value.isString())
        return PluginOutput{plainFileName(proposed), value.toString().toUtf8()};
    const QJsonValue content = value[u"content"];
    if (!content.isString())
        return std::unexpected(
            QStringLiteral("the plugin returned neither a text nor an object with one under \"content\""));
    const QString encoding = value[u"encoding"].toString(QStringLiteral("utf-8"));
    const QString name = plainFileName(value[u"fileName"].toString());
    PluginOutput output{name.isEmpty() ? plainFileName(proposed) : name, content.toString().toUtf8()};
    if (encoding == u"utf-8")
        return output;
    const auto decoded =
        QByteArray::fromBase64Encoding(output.content, QByteArray::AbortOnBase64DecodingErrors);
    if (encoding != u"base64" || !decoded)
        return std::unexpected(
            QStringLiteral("the plugin returned content that is not in its encoding, \"%1\"")
                .arg(plainLine(encoding, 20)));
    output.content = *decoded;
    return output;
}

} // namespace ledra
