#pragma once

#include "model/invoice.h"

namespace ledra {

/// A received e-invoice as the viewer shows it. It is never stored.
struct ViewerInvoice
{
    QUuid id; ///< of the tab; new for each opened file
    Invoice invoice;
    QString originalNumber; ///< as it is written, not formatted anew
    QString fileName;       ///< the title of the tab
    std::int64_t typeCode = 0;
};

} // namespace ledra
