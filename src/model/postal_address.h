#pragma once

#include "model/country.h"
#include "model/invoice.h"
#include "model/profile.h"

#include <QStringList>

namespace ledra {

/// Who and where, as it is written on an envelope.
struct PostalAddress
{
    QString businessName;
    QString name;
    QString lineOne;
    QString lineTwo;
    QString postcode;
    QString city;
    QString state;
    Country country;

    /// The business, or the person where there is none.
    QString firstName() const { return businessName.isEmpty() ? name : businessName; }

    /// The line that names the place, and what the country's habit puts beside it: "10115 Berlin",
    /// "Portland, OR 97205", or two lines for "London" and "N1 7GU".
    QStringList placeLines() const;

    /// All lines that are not empty, without the country.
    QStringList lines() const;
};

PostalAddress recipientAddress(const Invoice& invoice);
PostalAddress senderAddress(const Invoice& invoice);

} // namespace ledra
