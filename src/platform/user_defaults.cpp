#include "platform/user_defaults.h"

#include "platform/folder_tree.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <functional>
#include <optional>

namespace ledra {

namespace {

std::optional<QString> problemOf(const QSettings& settings)
{
    switch (settings.status()) {
    case QSettings::NoError:
        return std::nullopt;
    case QSettings::FormatError:
        return settings.fileName() + QStringLiteral(": not a settings file");
    case QSettings::AccessError:
        break;
    }
    return settings.fileName() + QStringLiteral(": cannot be read or written");
}

/// Changes the file under its lock; what others have written since stays.
std::expected<void, QString> change(const std::function<void(QSettings&)>& edit)
{
    QSettings settings(FileUserDefaults::path(), QSettings::IniFormat);
    settings.allKeys(); // makes it parse all sections now, and so find lines that writing would lose
    if (const auto problem = problemOf(settings))
        return std::unexpected(*problem);
    edit(settings);
    settings.sync();
    if (const auto problem = problemOf(settings))
        return std::unexpected(*problem);
    if (!QFileInfo::exists(settings.fileName())) // there was nothing to remove
        return {};
    const QByteArray folder = QFile::encodeName(QFileInfo(settings.fileName()).path());
    if (const auto durable = syncFolder(folder.toStdString()); !durable)
        return std::unexpected(durable.error().text());
    return {};
}

} // namespace

QString FileUserDefaults::path()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Ledra/Ledra.conf");
}

QVariant FileUserDefaults::value(const QString& key) const
{
    return QSettings(path(), QSettings::IniFormat).value(key);
}

std::expected<void, QString> FileUserDefaults::setValue(const QString& key, const QVariant& value)
{
    return change([&](QSettings& settings) { settings.setValue(key, value); });
}

std::expected<void, QString> FileUserDefaults::remove(const QString& key)
{
    return change([&](QSettings& settings) { settings.remove(key); });
}

} // namespace ledra
