#include "app/data_move.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace ledra {

namespace {

/// The path without links, of a folder that may be yet to be made.
QString withoutLinks(const QString& folder)
{
    const QFileInfo info(QDir::cleanPath(folder));
    if (info.exists() || info.isRoot())
        return info.canonicalFilePath();
    return QDir(withoutLinks(info.path())).filePath(info.fileName());
}

} // namespace

std::expected<Migration, QString> moveData(ProfileManager& profiles, const QString& folder)
{
    const QString current = profiles.dataFolder();
    const QFileInfo target(folder);
    if (target.exists() && !target.isDir())
        return std::unexpected(folder + QStringLiteral(": not a folder"));
    const QString wanted = withoutLinks(target.absoluteFilePath());
    const QString source = QFileInfo(current).canonicalFilePath();
    if (wanted == source)
        return std::unexpected(folder + QStringLiteral(": the data lie there already"));
    if (wanted.startsWith(source + u'/'))
        return std::unexpected(folder + QStringLiteral(": lies inside the data folder"));
    if (!QDir().mkpath(wanted))
        return std::unexpected(folder + QStringLiteral(": the folder cannot be made"));
    if (::access(QFile::encodeName(wanted).constData(), W_OK | X_OK) != 0)
        return std::unexpected(QStringLiteral("%1: the folder cannot be written to (%2)")
                                   .arg(folder, QString::fromLocal8Bit(std::strerror(errno))));
    return profiles.setCustomDataFolder(wanted, profiles.customDataPath());
}

} // namespace ledra
