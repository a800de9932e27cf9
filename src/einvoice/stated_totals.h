#pragma once

#include "einvoice/xml_document.h"
#include "model/invoice.h"

#include <optional>
#include <vector>

namespace ledra {

/// An amount that a document states of itself and that the record read from it does not have.
struct StatedDifference
{
    const char* label; ///< what it is; a key of the label tables
    double stated;
    std::optional<double> here; ///< what the record has; nothing for what records have no place for

    friend bool operator==(const StatedDifference&, const StatedDifference&) = default;
};

/// Compares the monetary summation of a Cross Industry Invoice (EN 16931, BG-22) with the record that was
/// read from it, to the cent. They differ where the document has charges, allowances of single lines, prices
/// for several pieces, paid amounts or roundings, which a record cannot hold, or where it does not add up.
std::vector<StatedDifference> statedDifferences(const Element& root, const Invoice& invoice);

/// "Amount Due: €50.00 (here €60.00)".
QString statedText(const StatedDifference& difference, const Currency& currency, Language language);

} // namespace ledra
