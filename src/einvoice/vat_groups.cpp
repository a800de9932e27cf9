#include "einvoice/vat_groups.h"

namespace ledra {

std::vector<VATGroup> vatGroups(const Invoice& invoice)
{
    std::vector<VATGroup> groups;
    for (const Invoice::Item& item : invoice.items) {
        auto group = std::ranges::find(groups, item.vatPercentage, &VATGroup::rate);
        if (group == groups.end())
            group = groups.insert(group, VATGroup{item.vatPercentage == 0 ? 0 : item.vatPercentage, 0, 0, 0});
        group->originalBasis += invoice.lineNet(item);
    }
    std::ranges::sort(groups, {}, &VATGroup::rate);
    const double subtotal = invoice.subtotal();
    const double discounted = subtotal - invoice.discount();
    for (VATGroup& group : groups) {
        group.discountedBasis =
            subtotal == 0 ? group.originalBasis : roundedToCents(discounted * group.originalBasis / subtotal);
        group.vatAmount = roundedToCents(group.rate * group.discountedBasis / 100.0);
    }
    return groups;
}

double discountShare(const Invoice& invoice, const VATGroup& group)
{
    const double subtotal = invoice.subtotal();
    return subtotal == 0 ? 0 : roundedToCents(invoice.discount() * group.originalBasis / subtotal);
}

} // namespace ledra
