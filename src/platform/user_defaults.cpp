#include "platform/user_defaults.h"

#include <QSettings>
#include <QStandardPaths>

namespace ledra {

QVariant FileUserDefaults::value(const QString& key) const
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QSettings(folder + QStringLiteral("/Ledra/Ledra.conf"), QSettings::IniFormat).value(key);
}

} // namespace ledra
