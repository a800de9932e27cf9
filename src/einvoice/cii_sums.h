#pragma once

#include "einvoice/xml_document.h"

#include <QString>

#include <functional>

namespace ledra {

/// Is told of each rule that is broken.
using RuleReport = std::function<void(const char* rule, const QString& text)>;

/// Checks the sums of a document and of its standard (S) and exempt (E) VAT categories, by EN 16931-1, 6.4.2
/// and 6.4.3. Sums are compared after rounding to cents, as the official rules do.
/// @param transaction the SupplyChainTradeTransaction
void checkSums(const Element& transaction, const RuleReport& report);

} // namespace ledra
