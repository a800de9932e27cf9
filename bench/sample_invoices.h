#pragma once

#include "model/invoice.h"

#include <vector>

namespace ledra::bench {

/// Invoices as a German studio writes them: ten lines each, texts of several sizes with umlauts, dashes and
/// line breaks, amounts with cents. The same call gives the same invoices.
std::vector<Invoice> sampleInvoices(int count);

} // namespace ledra::bench
