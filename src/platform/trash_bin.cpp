#include "platform/trash_bin.h"

#include "platform/file_move.h"
#include "platform/folder_tree.h"
#include "platform/trash_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#include <unistd.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace ledra {

namespace {

std::expected<struct stat, FileError> statusOfName(const QString& path)
{
    return statusOf(QFile::encodeName(path).toStdString());
}

bool isOwnFolder(const QString& path)
{
    const auto status = statusOfName(path);
    return status && S_ISDIR(status->st_mode) && status->st_uid == ::getuid();
}

bool isSharedFolder(const QString& path)
{
    const auto status = statusOfName(path);
    return status && S_ISDIR(status->st_mode) && (status->st_mode & S_ISVTX) != 0;
}

/// The trash at a mount point, where other users can make folders too: only what the specification lets
/// count.
std::vector<TrashFolder> trashAtMountPoint(const QString& top)
{
    const QString user = QString::number(::getuid());
    const QString shared = QDir(top).filePath(QStringLiteral(".Trash"));
    const QString inShared = shared + u'/' + user;
    const QString own = QDir(top).filePath(QStringLiteral(".Trash-") + user);
    std::vector<TrashFolder> found;
    if (isSharedFolder(shared) && isOwnFolder(inShared))
        found.push_back({inShared, top});
    if (isOwnFolder(own))
        found.push_back({own, top});
    return found;
}

/// The mount point of a folder that may itself have been deleted.
QString mountPointOf(QString folder)
{
    while (!QFileInfo::exists(folder))
        folder = QFileInfo(folder).path();
    return QStorageInfo(folder).rootPath();
}

/// A path below a folder, as seen through that folder; empty for one that lies elsewhere. The desktop may
/// have recorded what is behind the links on the way to the folder.
QString pathBelow(const QString& path, const QString& folder)
{
    for (const QString& name : {folder, QFileInfo(folder).canonicalFilePath()}) {
        if (!name.isEmpty() && path.startsWith(name.endsWith(u'/') ? name : name + u'/'))
            return QDir(folder).filePath(QDir(name).relativeFilePath(path));
    }
    return {};
}

qint64 moment(const TrashedFile& file)
{
    const bool isKnown = file.deletionDate.isValid();
    return isKnown ? file.deletionDate.toMSecsSinceEpoch() : std::numeric_limits<qint64>::min();
}

/// The last deleted first; by path where the second is the same.
bool comesFirst(const TrashedFile& left, const TrashedFile& right)
{
    return std::tuple(moment(right), left.path) < std::tuple(moment(left), right.path);
}

} // namespace

std::expected<QString, FileError> TrashBin::put(const QString& path)
{
    if (const auto status = statusOfName(path); !status) // an empty path would stand for the current folder
        return std::unexpected(status.error());
    const QString source = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QString place;
    if (QFile::moveToTrash(source, &place))
        return place;
    return TrashFolder{fallback_}.put(source);
}

std::vector<TrashedFile> TrashBin::filesFrom(const QString& folder) const
{
    const QString top = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    std::vector<TrashFolder> places = trashAtMountPoint(mountPointOf(top));
    places.push_back({data + QStringLiteral("/Trash")});
    places.push_back({fallback_});
    std::vector<TrashedFile> files;
    for (const TrashFolder& trash : places) {
        for (TrashedFile& file : trash.entries()) {
            file.originalPath = pathBelow(file.originalPath, top);
            if (!file.originalPath.isEmpty())
                files.push_back(std::move(file));
        }
    }
    std::ranges::sort(files, comesFirst);
    return files;
}

std::expected<void, FileError> TrashBin::restore(const TrashedFile& file)
{
    const QString parent = QFileInfo(file.originalPath).path();
    if (!QDir().mkpath(parent))
        return std::unexpected(FileError{parent, QStringLiteral("the folder cannot be made")});
    if (const auto moved = moveFile(file.path, file.originalPath); !moved)
        return moved;
    QFile info(infoPathOf(file));
    if (info.exists() && !info.remove())
        return std::unexpected(FileError{info.fileName(), info.errorString()});
    return {};
}

} // namespace ledra
