#pragma once

#include <QString>

namespace ledra {

/// The first whole JSON object in a text, without what stands around it (fences, explanations); empty when
/// there is none.
QString objectWithin(const QString& text);

/// The beginning of a JSON object made whole: an unfinished text ends where it stands, other unfinished
/// values and keys are left out, and what is open is closed. Empty when no object has begun.
QString completedObject(const QString& beginning);

} // namespace ledra
