#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ledra {

/// A template of the application's resources ("faktur-x.xml"); nothing when it is not part of the build.
std::optional<QByteArray> einvoiceResource(const QString& fileName);

} // namespace ledra
