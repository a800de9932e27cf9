#include "store/key_value.h"

#include "model/region.h"

#include <cmath>

namespace ledra {

namespace {

std::unexpected<QString> notA(const char* kind, const QString& text)
{
    return std::unexpected(QStringLiteral("\"%1\" is not %2").arg(text, QString::fromLatin1(kind)));
}

std::unexpected<QString> notADay(const QString& text)
{
    return notA("a date such as 2026-03-05", text);
}

std::optional<QString> scalarText(const JSONNode& node)
{
    if (const auto* text = std::get_if<std::string>(&node))
        return QString::fromStdString(*text);
    if (const auto* number = std::get_if<JSONNumber>(&node))
        return QString::fromStdString(number->text);
    if (const auto* truth = std::get_if<bool>(&node))
        return *truth ? QStringLiteral("true") : QStringLiteral("false");
    return std::nullopt;
}

std::optional<QString> listText(const JSONArrayStorage& array)
{
    QStringList texts;
    for (const JSONNode& item : array.items) {
        const std::optional<QString> text = scalarText(item);
        if (!text)
            return std::nullopt;
        texts += *text;
    }
    return texts.join(u',');
}

void appendMembers(const JSONNode& record, const QString& prefix, std::vector<KeyText>& list)
{
    const auto* object = std::get_if<std::shared_ptr<JSONObjectStorage>>(&record);
    if (!object)
        return;
    for (const auto& [key, node] : (*object)->pairs) {
        const QString name = prefix + QString::fromStdString(key);
        std::optional<QString> text = scalarText(node);
        if (const auto* array = std::get_if<std::shared_ptr<JSONArrayStorage>>(&node))
            text = listText(**array);
        if (text)
            list.push_back({name, *text});
        else
            appendMembers(node, name + u'.', list);
    }
}

} // namespace

std::unexpected<QString> unknownKey(const QString& key)
{
    return std::unexpected(key.isEmpty() ? QStringLiteral("this key cannot be set as a whole")
                                         : QStringLiteral("there is no such key"));
}

std::expected<double, QString> numberFrom(const QString& text, const ValueReading& reading)
{
    QString plain = text.trimmed();
    if (reading.locale.decimalPoint() == u"," && !plain.contains(u'.'))
        plain.replace(u',', u'.');
    bool isNumber = false;
    const double number = plain.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        return notA("a number", text);
    return number;
}

Assigned assignText(QString& field, const QString& text, const ValueReading&)
{
    if (text.toUtf8().size() > longestText)
        return std::unexpected(QStringLiteral("longer than %1 bytes").arg(longestText));
    field = text;
    return {};
}

Assigned assignText(double& field, const QString& text, const ValueReading& reading)
{
    const std::expected<double, QString> number = numberFrom(text, reading);
    if (!number)
        return std::unexpected(number.error());
    field = *number;
    return {};
}

Assigned assignText(std::int64_t& field, const QString& text, const ValueReading&)
{
    bool isInteger = false;
    const qlonglong number = text.trimmed().toLongLong(&isInteger);
    if (!isInteger)
        return notA("a whole number", text);
    field = number;
    return {};
}

Assigned assignText(bool& field, const QString& text, const ValueReading&)
{
    if (text != u"true" && text != u"false")
        return std::unexpected(QStringLiteral("\"%1\" is neither true nor false").arg(text));
    field = text == u"true";
    return {};
}

Assigned assignText(QUuid& field, const QString& text, const ValueReading&)
{
    const QUuid id = QUuid::fromString(text);
    if (id.isNull())
        return notA("an id", text);
    field = id;
    return {};
}

Assigned assignText(Timestamp& field, const QString& text, const ValueReading&)
{
    const std::optional<QDate> day = dayFromText(text);
    const std::optional<Timestamp> moment =
        day ? Timestamp::fromDateTime(QDateTime(*day, QTime(12, 0))) : Timestamp::fromIso8601(text);
    if (!moment || !moment->isInCalendarRange())
        return notADay(text);
    field = *moment;
    return {};
}

Assigned assignText(QDate& field, const QString& text, const ValueReading&)
{
    const std::optional<QDate> day = dayFromText(text);
    if (!day)
        return notADay(text);
    field = *day;
    return {};
}

Assigned assignText(Country& field, const QString& text, const ValueReading&)
{
    const QString code = text.toUpper();
    if (!findCountry(code))
        return notA("a country code such as DE", text);
    field.code = code;
    return {};
}

Assigned assignText(Currency& field, const QString& text, const ValueReading&)
{
    const QString code = text.toUpper();
    if (!isKnownCurrency(code))
        return notA("a currency code such as EUR", text);
    field.code = code;
    return {};
}

std::vector<KeyText> keyTexts(const JSONNode& record)
{
    std::vector<KeyText> list;
    appendMembers(record, QString(), list);
    return list;
}

} // namespace ledra
