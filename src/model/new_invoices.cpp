#include "model/new_invoices.h"

#include <cmath>

namespace ledra {

namespace {

/// The content that a copy takes over, as a new draft dated now; the number and what comes with it are not
/// part of it.
Invoice copiedContent(const Invoice& source, const NewInvoiceOrder& order)
{
    Invoice copy = source;
    copy.version = Invoice().version;
    copy.id = order.ids.newId();
    copy.number = order.number;
    copy.cancelledInvoiceId.reset();
    copy.quoteId.reset();
    copy.numberVariable.clear();
    copy.cancellationPrefix.reset();
    copy.quotePrefix.reset();
    copy.date = copy.serviceDateStart = copy.statusUpdateDate = order.now;
    copy.status = Status::draft;
    for (Invoice::Item& item : copy.items)
        item.id = order.ids.newId();
    return copy;
}

} // namespace

void takeSender(Invoice& invoice, const Profile& profile)
{
    invoice.senderName = profile.name;
    invoice.senderBusinessName = profile.businessName;
    invoice.senderAddressLineOne = profile.addressLineOne;
    invoice.senderAddressLineTwo = profile.addressLineTwo;
    invoice.senderAddressPostcode = profile.addressPostcode;
    invoice.senderAddressCity = profile.addressCity;
    invoice.senderAddressState = profile.addressState;
    invoice.senderAddressCountry = profile.addressCountry;
    invoice.senderEmail = profile.email;
    invoice.senderPhone = profile.phone;
    invoice.senderWeb = profile.website;
    invoice.senderAdditional = profile.additional;
    invoice.senderIban = profile.iban;
    invoice.senderBic = profile.bic;
    invoice.senderTaxNumber = profile.taxNumber;
    invoice.senderVatNumber = profile.vatNumber;
    invoice.senderAdditionalNumbers = profile.additionalNumbers;
}

Invoice invoiceFromProfile(InvoiceType type, const NewInvoiceOrder& order)
{
    const Profile& profile = order.profile;
    // Most recipients live where the sender does.
    Invoice invoice = newInvoice(order.ids.newId(), order.now, profile.addressCountry);
    invoice.type = type;
    invoice.number = order.number;
    takeSender(invoice, profile);
    invoice.currency = profile.currency;
    invoice.marginalNote = profile.marginalNote;
    invoice.language = profile.language;
    invoice.numberFormat = profile.numberFormat;
    invoice.daysToPay = profile.daysToPay;
    invoice.vatExemptionReason = profile.vatExemptionReason;
    if (type == InvoiceType::quote)
        invoice.quotePrefix = profile.quotePrefix;
    return invoice;
}

Invoice duplicateOf(const Invoice& source, const NewInvoiceOrder& order)
{
    Invoice copy = copiedContent(source, order);
    if (copy.type == InvoiceType::quote)
        copy.quotePrefix = order.profile.quotePrefix;
    if (copy.type == InvoiceType::cancellation)
        copy.cancellationPrefix = order.profile.cancellationPrefix;
    return copy;
}

Invoice cancellationOf(const Invoice& invoice, const NewInvoiceOrder& order)
{
    Invoice cancellation = copiedContent(invoice, order);
    cancellation.type = InvoiceType::cancellation;
    cancellation.cancellationPrefix = order.profile.cancellationPrefix;
    cancellation.cancelledInvoiceId = invoice.id;
    cancellation.numberVariable = invoice.numberVariable;
    for (Invoice::Item& item : cancellation.items)
        item.unitPrice = item.unitPrice == 0 ? 0 : -std::abs(item.unitPrice); // no −0.0 in files
    return cancellation;
}

Invoice invoiceFromQuote(const Invoice& quote, const NewInvoiceOrder& order)
{
    Invoice invoice = copiedContent(quote, order);
    invoice.type = InvoiceType::invoice;
    invoice.quoteId = quote.id;
    return invoice;
}

double rateOf(Unit unit, const Profile& profile)
{
    switch (unit) {
    case Unit::hour:
        return profile.hourlyRate;
    case Unit::day:
        return profile.dailyRate;
    case Unit::week:
        return profile.weeklyRate;
    case Unit::piece:
    case Unit::lumpSum:
        break;
    }
    return 0;
}

Invoice::Item newItem(const Profile& profile, IdSource& ids)
{
    Invoice::Item item;
    item.id = ids.newId();
    item.vatPercentage = profile.vatPercentage;
    return item;
}

std::int64_t numberForNew(std::int64_t next, InvoiceType type, const Profile& profile, int thisYear)
{
    const bool isFirst = next == 1 && type == InvoiceType::invoice;
    const bool startsThisYear = profile.startNumberYear.value_or(thisYear) == thisYear;
    return isFirst && startsThisYear ? profile.startNumber : next;
}

} // namespace ledra
