#pragma once

#include "model/invoice.h"

#include <functional>

namespace ledra {

/// Looks another invoice up, such as the one that a cancellation refers to.
using InvoiceLookup = std::function<std::optional<Invoice>(const QUuid& id)>;

} // namespace ledra
