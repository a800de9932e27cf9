#pragma once

#include "model/enumerations.h"

#include <QString>

#include <utility>

namespace ledra {

/// The wording of a document label in a language, whatever the language of the system. The key is the English
/// label and stands for itself where the language's table does not name it.
QString documentLabel(const QString& key, Language language);

/// As above, with "{name}" in the wording replaced by values.
QString documentLabel(const QString& key, Language language,
                      std::initializer_list<std::pair<QString, QString>> values);

/// The sentence that a document prints for a VAT exemption; empty for none.
QString exemptionText(VATExemptionReason reason, Language language);

/// "Hour", or "Hours" for any quantity but one, in the document's language.
QString unitLabel(Unit unit, double quantity, Language language);

} // namespace ledra
