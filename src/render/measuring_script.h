#pragma once

#include "render/page_breaker.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ledra {

/// The script that reads the geometry of a measuring page and returns it as JSON text.
///
/// @param pageHeight in rem
QString measuringScript(const QStringList& blockSelectors, const std::optional<QString>& headerSelector,
                        double pageHeight);

/// The script's answer; nothing when it is not of the form that the script returns.
std::optional<Geometry> parseGeometry(const QString& json);

} // namespace ledra
