#pragma once

#include "einvoice/xml_document.h"

#include <QString>

#include <vector>

namespace ledra {

/// A business rule that a document breaks.
struct BrokenRule
{
    QString id;   ///< as the standard names it: "BR-CO-14"
    QString text; ///< what is wrong, for users

    friend bool operator==(const BrokenRule&, const BrokenRule&) = default;
};

/// The business rules of EN 16931-1 (BR-…) and of XRechnung 3.0 (BR-DE-…) that a Cross Industry Invoice
/// breaks, each rule once, in a fixed order.
///
/// Checked are the elements that every invoice must have, the sums, the standard and the exempt VAT category
/// and the codes of countries and currencies: what documents of this application can break. The official
/// validation knows more rules, about elements that it never writes.
std::vector<BrokenRule> brokenRules(const Element& root);

} // namespace ledra
