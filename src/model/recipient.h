#pragma once

#include "model/country.h"

#include <QString>

namespace ledra {

struct Invoice;

/// Whom a document is for.
struct Recipient
{
    QString name;
    QString businessName;
    QString addressLineOne;
    QString addressLineTwo;
    QString addressPostcode;
    QString addressCity;
    QString addressState;
    Country addressCountry;
    QString email;

    friend bool operator==(const Recipient&, const Recipient&) = default;
};

Recipient recipientOf(const Invoice& invoice);
void setRecipient(Invoice& invoice, const Recipient& recipient);

} // namespace ledra
