#include "platform/file_io.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace ledra {

std::expected<QByteArray, FileError> readFile(const QString& path, qint64 limit)
{
    const QFileInfo info(path);
    if (!info.exists())
        return std::unexpected(FileError{path, QStringLiteral("no such file")});
    if (!info.isFile())
        return std::unexpected(FileError{path, QStringLiteral("not a file")});
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(FileError{path, file.errorString()});
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
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        return std::unexpected(FileError{path, file.errorString()});
    return {};
}

} // namespace ledra
