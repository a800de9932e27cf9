#include "model/postal_address.h"

#include <algorithm>
#include <array>

namespace ledra {

namespace {

// Source: Universal Postal Union, addressing formats of the member countries.
constexpr std::array<QStringView, 4> stateBeforePostcode = {u"AU", u"CA", u"PR", u"US"};
constexpr std::array<QStringView, 6> postcodeOnLineOfItsOwn = {u"GB", u"GG", u"IE", u"IM", u"JE", u"GI"};

template <std::size_t count>
bool isOneOf(const Country& country, const std::array<QStringView, count>& codes)
{
    return std::ranges::find(codes, country.code) != codes.end();
}

QString joined(std::initializer_list<QString> parts, QStringView separator)
{
    QStringList present(parts);
    present.removeAll(QString());
    return present.join(separator);
}

} // namespace

QStringList PostalAddress::placeLines() const
{
    if (isOneOf(country, stateBeforePostcode))
        return {joined({city, joined({state, postcode}, u" ")}, u", ")};
    if (isOneOf(country, postcodeOnLineOfItsOwn))
        return {city, state, postcode};
    return {joined({postcode, city}, u" "), state};
}

QStringList PostalAddress::lines() const
{
    QStringList all = {businessName, name, lineOne, lineTwo};
    all += placeLines();
    all.removeAll(QString());
    return all;
}

PostalAddress recipientAddress(const Invoice& invoice)
{
    return {invoice.businessName,    invoice.name,        invoice.addressLineOne, invoice.addressLineTwo,
            invoice.addressPostcode, invoice.addressCity, invoice.addressState,   invoice.addressCountry};
}

PostalAddress senderAddress(const Invoice& invoice)
{
    return {invoice.senderBusinessName,    invoice.senderName,
            invoice.senderAddressLineOne,  invoice.senderAddressLineTwo,
            invoice.senderAddressPostcode, invoice.senderAddressCity,
            invoice.senderAddressState,    invoice.senderAddressCountry};
}

} // namespace ledra
