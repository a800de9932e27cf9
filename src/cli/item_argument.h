#pragma once

#include "model/clock.h"
#include "model/invoice.h"
#include "model/profile.h"
#include "store/key_value.h"

#include <QString>

#include <expected>

namespace ledra {

/// Reads "TEXT;QUANTITY;UNIT;PRICE;VAT", the form in which items are typed. Fields that are empty or left out
/// at the end take what a new line of the profile has; a field with a semicolon is quoted as in CSV (RFC
/// 4180).
[[nodiscard]] std::expected<Invoice::Item, QString> itemFrom(const QString& text, const Profile& profile,
                                                             IdSource& ids, const ValueReading& reading);

} // namespace ledra
