#include "platform/folder_bookmark.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>

#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <optional>

namespace ledra {

namespace {

// The blob, big-endian: magic, version, path (length and UTF-8), inode, file-system id, CRC-16 of all before
// it.
constexpr quint32 magic = 0x4c64466d;
constexpr quint8 currentVersion = 1;
constexpr qsizetype headLength = sizeof magic + sizeof currentVersion;
constexpr qsizetype checksumLength = sizeof(quint16);

/// What tells a folder from another one that has its path.
struct FolderIdentity
{
    quint64 inode = 0;        ///< 0: the folder was not there
    quint64 fileSystemId = 0; ///< 0: the file system gives none

    bool mayBe(const FolderIdentity& now) const
    {
        const bool sameFileSystem =
            fileSystemId == 0 || now.fileSystemId == 0 || fileSystemId == now.fileSystemId;
        return inode == 0 || (inode == now.inode && sameFileSystem);
    }
};

/// Nothing where no folder is.
std::optional<FolderIdentity> identityOf(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0 || !S_ISDIR(status.st_mode))
        return std::nullopt;
    struct statfs fileSystem = {};
    const bool known = ::statfs(name.constData(), &fileSystem) == 0;
    return FolderIdentity{status.st_ino, known ? std::bit_cast<quint64>(fileSystem.f_fsid) : 0};
}

QByteArray checksum(QByteArrayView content)
{
    QByteArray sum;
    QDataStream(&sum, QIODevice::WriteOnly) << qChecksum(content);
    return sum;
}

/// Says why a blob is no bookmark of this version.
std::optional<QString> defectOf(const QByteArray& blob)
{
    quint32 start = 0;
    quint8 version = 0;
    QDataStream(blob) >> start >> version;
    if (blob.size() < headLength || start != magic)
        return QStringLiteral("not a folder bookmark");
    if (version != currentVersion)
        return QStringLiteral("a folder bookmark of the unknown version %1").arg(version);
    if (checksum(QByteArrayView(blob).chopped(checksumLength)) != blob.last(checksumLength))
        return QStringLiteral("a damaged folder bookmark");
    return std::nullopt;
}

/// Whether nothing has this name, not even a link that leads nowhere.
bool isMissing(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) != 0 && errno == ENOENT;
}

} // namespace

QByteArray makeFolderBookmark(const QString& folder)
{
    const QString path = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    const FolderIdentity identity = identityOf(path).value_or(FolderIdentity{});
    QByteArray blob;
    QDataStream stream(&blob, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << magic << currentVersion << path.toUtf8() << identity.inode << identity.fileSystemId;
    return blob + checksum(blob);
}

std::expected<ResolvedBookmark, QString> resolveFolderBookmark(const QByteArray& blob)
{
    if (const std::optional<QString> defect = defectOf(blob))
        return std::unexpected(*defect);
    QByteArray path;
    FolderIdentity chosen;
    QDataStream stream(blob.sliced(headLength));
    stream.setVersion(QDataStream::Qt_6_4);
    stream >> path >> chosen.inode >> chosen.fileSystemId;
    const QString folder = QString::fromUtf8(path);
    if (stream.status() != QDataStream::Ok || !QDir::isAbsolutePath(folder))
        return std::unexpected(QStringLiteral("a damaged folder bookmark"));
    const std::optional<FolderIdentity> now = identityOf(folder);
    return ResolvedBookmark{folder, now ? !chosen.mayBe(*now) : QFileInfo::exists(folder)};
}

bool isAccessibleFolder(const QString& folder)
{
    if (isMissing(folder))
        return true;
    return QFileInfo(folder).isDir() && ::access(QFile::encodeName(folder).constData(), R_OK | X_OK) == 0;
}

} // namespace ledra
