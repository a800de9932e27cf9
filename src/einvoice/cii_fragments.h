#pragma once

#include "einvoice/vat_groups.h"
#include "model/invoice.h"

#include <string>
#include <string_view>
#include <vector>

namespace ledra {

/// What the elements of a Cross Industry Invoice that are made for each document come from.
struct FragmentSource
{
    const Invoice& invoice;
    std::vector<VATGroup> groups;
    std::string exemptionReason; ///< as the document prints it; empty for none
};

/// "S", or "E" for a rate of exactly 0 (UNTDID 5305).
std::string_view vatCategory(double rate);

/// What an item costs without VAT, always positive: the sign of a line is in its quantity.
double netUnitPrice(const Invoice& invoice, const Invoice::Item& item);

// Each gives the text of some elements, without white space between them; empty when there are none.

std::string vatBreakdown(const FragmentSource& source); ///< ApplicableTradeTax, one a rate
std::string allowances(const FragmentSource& source);   ///< SpecifiedTradeAllowanceCharge, one a rate

/// The AdditionalReferencedDocument of a cancellation: the number of the invoice that it cancels.
std::string referencedDocument(std::string_view cancelledNumber);

} // namespace ledra
