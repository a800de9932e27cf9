#include "model/vcard.h"

#include <QStringDecoder>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace ledra {

namespace {

/// A line "GROUP.NAME;PARAMETER=VALUE:CONTENT".
struct Property
{
    QString name;       ///< upper case
    QString parameters; ///< upper case, with a semicolon before each
    QByteArray content;

    bool isPreferred() const { return parameters.contains(u"PREF"); }
};

/// The lines of the first card, those that go on in the next put together (RFC 6350, 3.2).
std::vector<QByteArray> cardLines(const QByteArray& text)
{
    std::vector<QByteArray> lines;
    bool isInside = false;
    for (QByteArray line : text.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        const QByteArray upper = line.trimmed().toUpper();
        if (upper == "END:VCARD")
            break;
        const bool goesOn = line.startsWith(' ') || line.startsWith('\t');
        // Version 2.1 ends lines of quoted-printable text with "=".
        const bool isSoft = !lines.empty() && lines.back().endsWith('=') &&
                            lines.back().toUpper().contains("QUOTED-PRINTABLE");
        if (isInside && isSoft) {
            lines.back().chop(1);
            lines.back() += line;
        } else if (isInside && goesOn && !lines.empty()) {
            lines.back() += line.sliced(1);
        } else if (isInside) {
            lines.push_back(line);
        }
        isInside = isInside || upper == "BEGIN:VCARD";
    }
    return lines;
}

QByteArray fromQuotedPrintable(const QByteArray& text)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QByteArray digits = text.mid(i + 1, 2);
        bool isHexadecimal = false;
        const int byte = digits.toInt(&isHexadecimal, 16);
        if (text[i] == '=' && digits.size() == 2 && isHexadecimal) {
            bytes += static_cast<char>(byte);
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

std::optional<Property> propertyOf(const QByteArray& line)
{
    bool isQuoted = false; // parameters may have colons in quotes
    for (qsizetype i = 0; i < line.size(); ++i) {
        isQuoted = isQuoted != (line[i] == '"');
        if (line[i] != ':' || isQuoted)
            continue;
        const QString head = QString::fromUtf8(line.first(i)).toUpper();
        const QString name = head.section(u';', 0, 0).section(u'.', -1);
        return Property{name, head.mid(head.section(u';', 0, 0).size()), line.sliced(i + 1)};
    }
    return std::nullopt;
}

/// The parts of a value between semicolons, without its escapes (RFC 6350, 3.4).
QStringList parts(const Property& property)
{
    const bool isQuotedPrintable = property.parameters.contains(u"QUOTED-PRINTABLE");
    const QByteArray bytes = isQuotedPrintable ? fromQuotedPrintable(property.content) : property.content;
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    if (utf8.hasError())
        text = QString::fromLatin1(bytes); // what old telephones write
    QStringList list = {QString()};
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isEscaped = text[i] == u'\\' && i + 1 < text.size();
        const QChar letter = isEscaped ? text[++i] : text[i];
        if (letter == u';' && !isEscaped)
            list += QString();
        else if (isEscaped && letter.toLower() == u'n')
            list.back() += u'\n';
        else if (letter >= u' ')
            list.back() += letter;
    }
    for (QString& part : list)
        part = part.trimmed();
    return list;
}

/// The first property of a name, or the preferred one of several.
const Property* best(const std::vector<Property>& properties, QStringView name)
{
    const Property* found = nullptr;
    for (const Property& property : properties) {
        if (property.name == name && (!found || (property.isPreferred() && !found->isPreferred())))
            found = &property;
    }
    return found;
}

Country countryNamed(const QString& text, const Country& otherwise)
{
    const QString wanted = text.trimmed();
    if (findCountry(wanted.toUpper()))
        return {wanted.toUpper()};
    const auto isNamed = [&](const CountryFacts& facts) {
        const auto matches = [&](std::string_view name) {
            return wanted.compare(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
                                  Qt::CaseInsensitive) == 0;
        };
        return matches(facts.englishName) || matches(facts.germanName);
    };
    const auto found = std::ranges::find_if(countryTable(), isNamed);
    return found == countryTable().end()
               ? otherwise
               : Country{QString::fromLatin1(found->code.data(), static_cast<qsizetype>(found->code.size()))};
}

/// Box, extension and street; place, region, postcode and country (RFC 6350, 6.3.1).
void setAddress(Recipient& recipient, const QStringList& address)
{
    QStringList lines = address.value(2).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& more : {address.value(1), address.value(0)}) {
        if (!more.isEmpty())
            lines += more;
    }
    recipient.addressLineOne = lines.value(0);
    recipient.addressLineTwo = lines.mid(1).join(QStringLiteral(", "));
    recipient.addressCity = address.value(3);
    recipient.addressState = address.value(4);
    recipient.addressPostcode = address.value(5);
    recipient.addressCountry = countryNamed(address.value(6), recipient.addressCountry);
}

/// "Given Family" of a structured name (RFC 6350, 6.2.2).
QString nameFrom(const QStringList& name)
{
    return (name.value(1) + u' ' + name.value(0)).trimmed();
}

} // namespace

std::optional<Recipient> recipientFromVCard(const QByteArray& text, const Country& country)
{
    std::vector<Property> properties;
    for (const QByteArray& line : cardLines(text)) {
        if (const std::optional<Property> property = propertyOf(line))
            properties.push_back(*property);
    }
    const auto partsOf = [&](QStringView name) {
        const Property* property = best(properties, name);
        return property ? parts(*property) : QStringList();
    };
    Recipient recipient;
    recipient.addressCountry = country;
    recipient.name = partsOf(u"FN").join(u';');
    if (recipient.name.isEmpty())
        recipient.name = nameFrom(partsOf(u"N"));
    recipient.businessName = partsOf(u"ORG").value(0);
    recipient.email = partsOf(u"EMAIL").value(0);
    setAddress(recipient, partsOf(u"ADR"));
    if (recipient.name == recipient.businessName)
        recipient.name.clear(); // a card of a business
    if (recipient.name.isEmpty() && recipient.businessName.isEmpty() && recipient.email.isEmpty())
        return std::nullopt;
    return recipient;
}

} // namespace ledra
