#include "platform/file_io.h"

#include "platform/file_reading.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace ledra {

std::expected<QByteArray, FileError> readFile(const QString& path, qint64 limit)
{
    constexpr qint64 firstGuess = 1 << 16;
    QByteArray content;
    std::expected<void, FileError> read;
    if (path == standardStream)
        read = readAll(STDIN_FILENO, path, firstGuess, limit, content);
    else if (const auto signature = readFileAt(AT_FDCWD, path, path, limit, content); !signature)
        read = std::unexpected(signature.error());
    if (!read)
        return std::unexpected(read.error());
    return content;
}

std::expected<void, FileError> writeExport(const QString& path, const QByteArray& content,
                                           Overwrite overwrite)
{
    const auto write = [&](QFileDevice& file) -> std::expected<void, FileError> {
        if (file.write(content) != content.size())
            return fileProblem(path, file.errorString());
        return {};
    };
    return writeExport(path, write, overwrite);
}

std::expected<void, FileError> writeExport(const QString& path, const ExportWriter& write,
                                           Overwrite overwrite)
{
    if (overwrite == Overwrite::refuse && QFileInfo::exists(path))
        return fileProblem(path, QStringLiteral("exists already (--force overwrites it)"));
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) // a pipe or a device is not to become a file
        return fileProblem(path, QStringLiteral("not a file"));
    QSaveFile file(path); // which goes without a trace unless it is committed
    if (!file.open(QIODevice::WriteOnly))
        return fileProblem(path, file.errorString());
    if (const auto written = write(file); !written)
        return written;
    // commit() does not look at what becomes of the bytes that are still buffered.
    if (!file.flush() || !file.commit())
        return fileProblem(path, file.errorString());
    return {};
}

} // namespace ledra
