#include "einvoice/cii_losses.h"

#include "einvoice/cii_fragments.h"
#include "einvoice/cii_text.h"

namespace ledra {

namespace {

/// A line as a reader computes it: the written price times the written quantity.
double lineAsRead(const Invoice& invoice, const Invoice::Item& item)
{
    const double price = decimalFrom(ciiUnitPrice(netUnitPrice(invoice, item))).value_or(0);
    const double quantity = invoice.type == InvoiceType::cancellation ? -item.quantity : item.quantity;
    return roundedToCents(quantity * price);
}

} // namespace

QStringList lossesInCii(const Invoice& invoice)
{
    QStringList losses;
    for (std::size_t i = 0; i < invoice.items.size(); ++i) {
        const double net = invoice.lineNet(invoice.items[i]);
        const double read = lineAsRead(invoice, invoice.items[i]);
        if (net == read)
            continue;
        const bool isSignLost = net * read < 0;
        losses +=
            QStringLiteral("line %1: ").arg(i + 1) +
            (isSignLost
                 ? QStringLiteral("its total is %1, but quantity times price, which carry no sign, is %2")
                 : QStringLiteral("its total is %1, but quantity times price without VAT is %2"))
                .arg(QString::fromStdString(ciiAmount(net)), QString::fromStdString(ciiAmount(read)));
    }
    if (invoice.discount() < 0)
        losses += QStringLiteral("the discount is below zero, which other programs may not read as one");
    return losses;
}

} // namespace ledra
