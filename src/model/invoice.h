#pragma once

#include "model/country.h"
#include "model/currency.h"
#include "model/enumerations.h"
#include "model/record.h"
#include "model/timestamp.h"

#include <QUuid>

#include <cstdint>
#include <optional>
#include <vector>

namespace ledra {

/// The VAT of one rate in a document.
struct VATAmount
{
    double rate = 0;   ///< percent
    double amount = 0; ///< money, rounded to cents

    friend bool operator==(const VATAmount&, const VATAmount&) = default;
};

/// Rounds to cents, half away from zero. The one rounding of all money.
double roundedToCents(double amount);

/// An invoice, a quote or a cancellation, with snapshots of its recipient and its sender.
///
/// A value: two invoices are equal when all stored fields are. Stores share it as an InvoiceRecord, which
/// adds identity and observation. Money and quantities are doubles; amounts are computed here and nowhere
/// else.
struct Invoice
{
    /// One line of the document.
    struct Item
    {
        QUuid id;
        QString item; ///< the line's description, possibly of several lines
        double quantity = 1;
        Unit unit = Unit::piece;
        double unitPrice = 0;     ///< net, or gross with the invoice's grossPrices
        double vatPercentage = 0; ///< percent; 0 means no VAT on the line

        friend bool operator==(const Item&, const Item&) = default;
    };

    std::int64_t version = 2;
    InvoiceType type = InvoiceType::invoice;
    QUuid id;
    std::optional<QUuid> cancelledInvoiceId;
    std::optional<QUuid> quoteId;
    std::int64_t number = 0;
    std::optional<QString> numberFormat;
    QString numberVariable;
    std::optional<QString> cancellationPrefix;
    std::optional<QString> quotePrefix;
    Timestamp date;
    Timestamp serviceDateStart;
    std::optional<Timestamp> serviceDateEnd;
    QString name;
    QString businessName;
    QString addressLineOne;
    QString addressLineTwo;
    QString addressPostcode;
    QString addressCity;
    QString addressState;
    Country addressCountry;
    QString email;
    QString senderName;
    QString senderBusinessName;
    QString senderAddressLineOne;
    QString senderAddressLineTwo;
    QString senderAddressPostcode;
    QString senderAddressCity;
    QString senderAddressState;
    Country senderAddressCountry;
    QString senderEmail;
    QString senderPhone;
    QString senderWeb;
    QString senderAdditional;
    QString senderIban;
    QString senderBic;
    QString senderTaxNumber;
    QString senderVatNumber;
    QString senderAdditionalNumbers;
    std::vector<Item> items;
    bool grossPrices = false;
    std::optional<double> discountPercentage; ///< percent; wins over discountAmount when positive
    std::optional<double> discountAmount;
    VATExemptionReason vatExemptionReason = VATExemptionReason::none;
    QString marginalNote;
    std::int64_t daysToPay = 14;
    Currency currency;
    std::optional<Language> language; ///< absent: the profile's language applies
    Status status = Status::draft;
    Timestamp statusUpdateDate;
    QString note;
    std::optional<QString> reference;

    /// quantity × unitPrice, without VAT where prices are gross, rounded to cents.
    double lineNet(const Item& item) const;

    /// The sum of the line nets in item order.
    double subtotal() const;

    /// In money, with the sign of the subtotal; 0 without a discount.
    double discount() const;

    /// One entry for each distinct rate above 0 %, ascending, each on its share of the discounted subtotal.
    std::vector<VATAmount> vatAmounts() const;

    /// subtotal − discount + all VAT amounts.
    double total() const;

    /// `date` plus `daysToPay` calendar days, in the user's time zone.
    QDateTime dueDate() const;
    QDate dueDay() const; ///< its day

    /// Whether the document is sent and `now` lies after its due date.
    bool isOverdue(Timestamp now) const;

    friend bool operator==(const Invoice&, const Invoice&) = default;

private:
    // The same on a subtotal that is known, so that a total adds the lines up once.
    double discountOn(double base) const;
    std::vector<VATAmount> vatAmountsOn(double base) const;
};

using InvoiceRecord = Record<Invoice>;

/// A new invoice, holding what the record holds before anything is assigned.
Invoice newInvoice(const QUuid& id, Timestamp now, const Country& country);

template <>
inline constexpr std::tuple recordFields<Invoice> = {
    &Invoice::version,
    &Invoice::type,
    &Invoice::id,
    &Invoice::cancelledInvoiceId,
    &Invoice::quoteId,
    &Invoice::number,
    &Invoice::numberFormat,
    &Invoice::numberVariable,
    &Invoice::cancellationPrefix,
    &Invoice::quotePrefix,
    &Invoice::date,
    &Invoice::serviceDateStart,
    &Invoice::serviceDateEnd,
    &Invoice::name,
    &Invoice::businessName,
    &Invoice::addressLineOne,
    &Invoice::addressLineTwo,
    &Invoice::addressPostcode,
    &Invoice::addressCity,
    &Invoice::addressState,
    &Invoice::addressCountry,
    &Invoice::email,
    &Invoice::senderName,
    &Invoice::senderBusinessName,
    &Invoice::senderAddressLineOne,
    &Invoice::senderAddressLineTwo,
    &Invoice::senderAddressPostcode,
    &Invoice::senderAddressCity,
    &Invoice::senderAddressState,
    &Invoice::senderAddressCountry,
    &Invoice::senderEmail,
    &Invoice::senderPhone,
    &Invoice::senderWeb,
    &Invoice::senderAdditional,
    &Invoice::senderIban,
    &Invoice::senderBic,
    &Invoice::senderTaxNumber,
    &Invoice::senderVatNumber,
    &Invoice::senderAdditionalNumbers,
    &Invoice::items,
    &Invoice::grossPrices,
    &Invoice::discountPercentage,
    &Invoice::discountAmount,
    &Invoice::vatExemptionReason,
    &Invoice::marginalNote,
    &Invoice::daysToPay,
    &Invoice::currency,
    &Invoice::language,
    &Invoice::status,
    &Invoice::statusUpdateDate,
    &Invoice::note,
    &Invoice::reference,
};

} // namespace ledra

/// By identity: equal invoices have equal ids.
template <>
struct std::hash<ledra::Invoice>
{
    std::size_t operator()(const ledra::Invoice& invoice) const noexcept { return qHash(invoice.id); }
};

template <>
struct std::hash<ledra::Invoice::Item>
{
    std::size_t operator()(const ledra::Invoice::Item& item) const noexcept { return qHash(item.id); }
};
