#pragma once

#include <QJsonObject>
#include <QString>

#include <expected>

namespace ledra {

// What users set for a plugin, as they write it: one KEY=VALUE in each line.

QString pluginSettingsText(const QJsonObject& settings);

/// The error names the line that is none.
[[nodiscard]] std::expected<QJsonObject, QString> pluginSettingsFrom(const QString& text);

} // namespace ledra
