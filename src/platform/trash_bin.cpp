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

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QString homeTrash()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Trash");
}

/// Where there is no home trash in the end, Qt 6.4 takes the current folder for one.
bool makeHomeTrash()
{
    const QFileInfo trash(homeTrash());
    const bool isNew = QDir().mkpath(trash.path()) && QDir().mkdir(trash.filePath(), ownerOnly);
    return isNew || trash.isDir();
}

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

/// The trash at a mount point, where other users can make folders too: only what the trash standard lets
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

/// The last deleted first; by place where the time is the same.
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
    if (!makeHomeTrash() || !QFile::moveToTrash(source, &place))
        return TrashFolder{fallback_, {}}.put(source);
    // Qt 6.4 writes the path without the percent-encoding that every reader undoes.
    if (const auto written = writeInfo(infoPathOf(place), source); !written)
        return std::unexpected(written.error());
    return place;
}

std::vector<TrashedFile> TrashBin::filesFrom(const QString& folder) const
{
    const QString top = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    std::vector<TrashFolder> places = trashAtMountPoint(mountPointOf(top));
    places.push_back({homeTrash(), {}});
    places.push_back({fallback_, {}});
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
    QFile info(infoPathOf(file.path));
    if (info.exists() && !info.remove())
        return std::unexpected(FileError{info.fileName(), info.errorString()});
    return {};
}

} // namespace ledra
