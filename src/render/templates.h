#pragma once

#include <QString>

#include <expected>

namespace ledra {

/// A document template of the application's resources ("Shell.html"), or why it could not be loaded.
[[nodiscard]] std::expected<QString, QString> templateText(const QString& fileName);

} // namespace ledra
