#pragma once

#include "model/invoice.h"

#include <vector>

namespace ledra {

/// What a document has at one VAT rate, for the VAT breakdown (EN 16931, BG-23). Amounts are rounded each on
/// its own, so that sums may differ from the document's totals by cents.
struct VATGroup
{
    double rate = 0;            ///< percent; 0 for lines without VAT
    double originalBasis = 0;   ///< the sum of the line nets
    double discountedBasis = 0; ///< after this rate's share of the document's discount
    double vatAmount = 0;

    friend bool operator==(const VATGroup&, const VATGroup&) = default;
};

/// One group a distinct rate, ascending, 0 included.
std::vector<VATGroup> vatGroups(const Invoice& invoice);

/// A group's share of the document's discount, rounded on its own; 0 when the subtotal is.
double discountShare(const Invoice& invoice, const VATGroup& group);

} // namespace ledra
