#pragma once

#include "model/invoice.h"

#include <QStringList>

namespace ledra {

/// What a record loses when it is written as a Cross Industry Invoice and read back, in sentences for users:
/// signs that the format has no place for, and fractions of prices.
QStringList lossesInCii(const Invoice& invoice);

} // namespace ledra
