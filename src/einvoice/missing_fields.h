#pragma once

#include "model/invoice.h"

#include <QStringList>

namespace ledra {

/// The labels of the fields that an e-invoice needs and that are empty, in a fixed order; English keys that
/// user interfaces translate.
QStringList missingFields(const Invoice& invoice);

/// The text that a user is asked or warned with: what is missing, and that the result may not be valid.
QString missingFieldsText(const QStringList& labels);

inline constexpr QStringView missingFieldsTitle = u"Missing Required Fields";

} // namespace ledra
