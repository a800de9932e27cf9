#pragma once

#include "einvoice/cii_fragments.h"
#include "einvoice/xml_document.h"

namespace ledra {

/// The IncludedSupplyChainTradeLineItem elements of an invoice, one an item.
///
/// They are elements rather than text like the fragments: the lines are most of a document, and reading them
/// again took half of the time in which it is made.
std::vector<std::unique_ptr<Element>> lineItems(const FragmentSource& source);

} // namespace ledra
