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
    if (path == standardStream)
        return readAll(STDIN_FILENO, path, firstGuess, limit);
    std::expected<FileContent, FileError> content = readFileAt(AT_FDCWD, path, path, limit);
    if (!content)
        return std::unexpected(content.error());
    return std::move(content->bytes);
}

std::expected<void, FileError> writeExport(const QString& path, const QByteArray& content,
                                           Overwrite overwrite)
{
    if (overwrite == Overwrite::refuse && QFileInfo::exists(path))
        return fileProblem(path, QStringLiteral("exists already (--force overwrites it)"));
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) // a pipe or a device is not to become a file
        return fileProblem(path, QStringLiteral("not a file"));
    QSaveFile file(path);
    // commit() does not look at what becomes of the bytes that are still buffered.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit())
        return fileProblem(path, file.errorString());
    return {};
}

} // namespace ledra
