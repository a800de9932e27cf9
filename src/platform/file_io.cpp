#include "platform/file_io.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>
#include <optional>

namespace ledra {

namespace {

/// Opens a regular file or the standard input; says why it cannot.
std::optional<QString> openForReading(QFile& file, const QString& path)
{
    const QFileInfo info(path);
    const bool isStream = path == standardStream;
    if (!isStream && !info.exists())
        return QStringLiteral("no such file");
    if (!isStream && !info.isFile())
        return QStringLiteral("not a file");
    file.setFileName(path);
    const bool opened = isStream ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    return opened ? std::nullopt : std::optional(file.errorString());
}

} // namespace

std::expected<QByteArray, FileError> readFile(const QString& path, qint64 limit)
{
    QFile file;
    if (const std::optional<QString> problem = openForReading(file, path))
        return std::unexpected(FileError{path, *problem});
    QByteArray content = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError)
        return std::unexpected(FileError{path, file.errorString()});
    if (content.size() > limit)
        return std::unexpected(FileError{path, QStringLiteral("larger than %1 MB").arg(limit >> 20)});
    return content;
}

std::expected<void, FileError> writeExport(const QString& path, const QByteArray& content,
                                           Overwrite overwrite)
{
    if (overwrite == Overwrite::refuse && QFileInfo::exists(path))
        return std::unexpected(FileError{path, QStringLiteral("exists already (--force overwrites it)")});
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) // a pipe or a device is not to become a file
        return std::unexpected(FileError{path, QStringLiteral("not a file")});
    QSaveFile file(path);
    // commit() does not look at what becomes of the bytes that are still buffered.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit())
        return std::unexpected(FileError{path, file.errorString()});
    return {};
}

} // namespace ledra
