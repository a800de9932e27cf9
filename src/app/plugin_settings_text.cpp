#include "app/plugin_settings_text.h"

#include <QStringList>

namespace ledra {

QString pluginSettingsText(const QJsonObject& settings)
{
    QStringList lines;
    for (auto entry = settings.begin(); entry != settings.end(); ++entry)
        lines += entry.key() + u'=' + entry.value().toString();
    return lines.join(u'\n');
}

std::expected<QJsonObject, QString> pluginSettingsFrom(const QString& text)
{
    QJsonObject settings;
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines) {
        const qsizetype sign = line.indexOf(u'=');
        if (line.trimmed().isEmpty())
            continue;
        if (sign < 1)
            return std::unexpected(QStringLiteral("“%1” is no KEY=VALUE").arg(line.trimmed()));
        settings[line.first(sign).trimmed()] = line.sliced(sign + 1).trimmed();
    }
    return settings;
}

} // namespace ledra
