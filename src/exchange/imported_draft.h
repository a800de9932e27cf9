#pragma once

#include "einvoice/xml_document.h"
#include "model/clock.h"
#include "model/invoice.h"

namespace ledra {

/// Shows a text as the number of a record, whatever it holds, and nothing before it.
void setLiteralNumber(Invoice& record, const QString& text);

/// Makes a draft of an e-invoice. The sender is the one that the document names; of the profile only what no
/// document says is taken from the fresh record: language, and the days to pay where the document has no due
/// date. Its number stays visible as it is written and takes no part in counting.
/// @param fresh a new record of the active profile, whose id the draft takes
Invoice draftFrom(const Element& root, const Invoice& fresh, IdSource& ids);

} // namespace ledra
