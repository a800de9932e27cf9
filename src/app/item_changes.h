#pragma once

#include "model/invoice.h"

#include <vector>

namespace ledra {

/// Makes a change of items, from one state to another, in items that somebody else may have changed since:
/// only those that differ between the two states are touched.
///
/// @param present the items as they are now
std::vector<Invoice::Item> withItemChange(std::vector<Invoice::Item> present,
                                          const std::vector<Invoice::Item>& from,
                                          const std::vector<Invoice::Item>& to);

} // namespace ledra
