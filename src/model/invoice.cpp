#include "model/invoice.h"

#include <algorithm>
#include <cmath>

namespace ledra {

namespace {

// Ten thousand years: beyond this no calendar holds the due date.
constexpr std::int64_t farthestDue = 3'652'500;
constexpr double secondsPerDay = 86'400;

double percentOf(double percentage, double amount)
{
    return roundedToCents(percentage * amount / 100.0);
}

} // namespace

double roundedToCents(double amount)
{
    return std::round(amount * 100.0) / 100.0; // std::round rounds halves away from zero
}

double Invoice::lineNet(const Item& item) const
{
    const double amount = item.quantity * item.unitPrice;
    const bool containsVat = grossPrices && item.vatPercentage > 0;
    return roundedToCents(containsVat ? amount / (item.vatPercentage / 100.0 + 1.0) : amount);
}

double Invoice::subtotal() const
{
    double sum = 0;
    for (const Item& item : items)
        sum += lineNet(item);
    return sum;
}

double Invoice::discount() const
{
    return discountOn(subtotal());
}

double Invoice::discountOn(double base) const
{
    if (discountPercentage && *discountPercentage > 0)
        return percentOf(*discountPercentage, base);
    if (discountAmount && *discountAmount > 0)
        return std::copysign(std::min(roundedToCents(*discountAmount), std::abs(base)), base);
    return 0;
}

std::vector<VATAmount> Invoice::vatAmounts() const
{
    return vatAmountsOn(subtotal());
}

std::vector<VATAmount> Invoice::vatAmountsOn(double base) const
{
    std::vector<VATAmount> amounts; // first the nets of the rates
    for (const Item& item : items) {
        if (item.vatPercentage <= 0)
            continue;
        auto rate = std::ranges::find(amounts, item.vatPercentage, &VATAmount::rate);
        if (rate == amounts.end())
            rate = amounts.insert(rate, {item.vatPercentage, 0});
        rate->amount += lineNet(item);
    }
    std::ranges::sort(amounts, {}, &VATAmount::rate);
    const double discounted = base - discountOn(base);
    for (VATAmount& vat : amounts) {
        if (base != 0)
            vat.amount = discounted * vat.amount / base;
        vat.amount = percentOf(vat.rate, vat.amount);
    }
    return amounts;
}

double Invoice::total() const
{
    const double base = subtotal();
    double sum = base - discountOn(base);
    for (const VATAmount& vat : vatAmountsOn(base))
        sum += vat.amount;
    return sum;
}

QDateTime Invoice::dueDate() const
{
    return date.toLocal().addDays(std::clamp(daysToPay, -farthestDue, farthestDue));
}

QDate Invoice::dueDay() const
{
    return date.localDate().addDays(std::clamp(daysToPay, -farthestDue, farthestDue));
}

bool Invoice::isOverdue(Timestamp now) const
{
    if (status != Status::sent)
        return false;
    // Only near the due date does the calendar matter, with its summer time; asking it takes a hundred times
    // as long.
    const double remaining =
        date.secondsSinceReference() +
        static_cast<double>(std::clamp(daysToPay, -farthestDue, farthestDue)) * secondsPerDay -
        now.secondsSinceReference();
    if (std::abs(remaining) > 2 * secondsPerDay)
        return remaining < 0;
    return now.toLocal() > dueDate();
}

Invoice newInvoice(const QUuid& id, Timestamp now, const Country& country)
{
    Invoice invoice;
    invoice.id = id;
    invoice.date = now;
    invoice.serviceDateStart = now;
    invoice.statusUpdateDate = now;
    invoice.addressCountry = country;
    invoice.senderAddressCountry = country;
    return invoice;
}

} // namespace ledra
