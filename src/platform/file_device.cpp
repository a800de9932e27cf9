#include "platform/file_device.h"

#include "platform/descriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace ledra {

namespace {

std::unexpected<FileError> systemError(const QString& path)
{
    return std::unexpected(FileError{path, QString::fromLocal8Bit(std::strerror(errno))});
}

Descriptor openPath(const QString& path, int flags)
{
    return Descriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0644));
}

std::expected<void, FileError> syncPath(const QString& path, int flags)
{
    const Descriptor file = openPath(path, flags);
    if (!file.isOpen() || !file.sync())
        return systemError(path);
    return {};
}

} // namespace

std::expected<std::optional<QByteArray>, FileError> SystemFileDevice::read(const QString& path, qint64 limit)
{
    if (!QFileInfo::exists(path))
        return std::nullopt;
    std::expected<QByteArray, FileError> content = readFile(path, limit);
    if (!content)
        return std::unexpected(content.error());
    return std::move(*content);
}

std::expected<void, FileError> SystemFileDevice::write(const QString& path, const QByteArray& content)
{
    const Descriptor file = openPath(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.isOpen() || !file.writeAll(content))
        return systemError(path);
    return {};
}

std::expected<void, FileError> SystemFileDevice::sync(const QString& path)
{
    return syncPath(path, O_RDONLY);
}

std::expected<void, FileError> SystemFileDevice::syncFolder(const QString& folder)
{
    return syncPath(folder, O_RDONLY | O_DIRECTORY);
}

std::expected<void, FileError> SystemFileDevice::rename(const QString& from, const QString& to)
{
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return systemError(from);
    return {};
}

std::expected<void, FileError> SystemFileDevice::remove(const QString& path)
{
    if (::unlink(QFile::encodeName(path).constData()) != 0)
        return systemError(path);
    return {};
}

std::expected<void, FileError> SystemFileDevice::makeFolder(const QString& folder)
{
    QStringList made; // the innermost first
    for (QString path = QDir::cleanPath(folder); !QFileInfo::exists(path); path = QFileInfo(path).path())
        made += path;
    if (!QDir().mkpath(folder))
        return std::unexpected(FileError{folder, QStringLiteral("the folder cannot be made")});
    std::expected<void, FileError> synced;
    for (const QString& path : made)
        synced = synced ? syncFolder(QFileInfo(path).path()) : synced;
    return synced;
}

QStringList SystemFileDevice::files(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

} // namespace ledra
