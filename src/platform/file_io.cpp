#include "platform/file_io.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ledra {

namespace {

std::unexpected<FileError> problem(const QString& path, const QString& reason)
{
    return std::unexpected(FileError{path, reason});
}

std::unexpected<FileError> systemProblem(const QString& path)
{
    return problem(path, errno == ENOENT ? QStringLiteral("no such file")
                                         : QString::fromLocal8Bit(std::strerror(errno)));
}

std::unexpected<FileError> tooLarge(const QString& path, qint64 limit)
{
    return problem(path, QStringLiteral("larger than %1 MB").arg(limit >> 20));
}

/// Reads until the end, at most `limit` bytes and one more; `expected` is a good guess of how many there are.
std::expected<QByteArray, FileError> readAll(int descriptor, const QString& path, qint64 expected, qint64 limit)
{
    QByteArray content(std::min(expected, limit) + 1, Qt::Uninitialized);
    qint64 size = 0;
    while (size <= limit) {
        if (size == content.size())
            content.resize(std::min(2 * size, limit + 1));
        const ssize_t count =
            ::read(descriptor, content.data() + size, static_cast<std::size_t>(content.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemProblem(path);
        if (count == 0)
            break;
        size += count;
    }
    if (size > limit)
        return tooLarge(path, limit);
    content.truncate(size);
    return content;
}

} // namespace

std::expected<QByteArray, FileError> readFile(const QString& path, qint64 limit)
{
    constexpr qint64 firstGuess = 1 << 16;
    if (path == standardStream)
        return readAll(STDIN_FILENO, path, firstGuess, limit);
    // Without blocking, since opening a pipe would wait for a writer.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return systemProblem(path);
    struct stat state = {};
    std::expected<QByteArray, FileError> content;
    if (::fstat(descriptor, &state) != 0)
        content = systemProblem(path);
    else if (!S_ISREG(state.st_mode))
        content = problem(path, QStringLiteral("not a file"));
    else if (state.st_size > limit)
        content = tooLarge(path, limit);
    else
        content = readAll(descriptor, path, state.st_size, limit);
    ::close(descriptor);
    return content;
}

std::expected<void, FileError> writeExport(const QString& path, const QByteArray& content,
                                           Overwrite overwrite)
{
    if (overwrite == Overwrite::refuse && QFileInfo::exists(path))
        return problem(path, QStringLiteral("exists already (--force overwrites it)"));
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) // a pipe or a device is not to become a file
        return problem(path, QStringLiteral("not a file"));
    QSaveFile file(path);
    // commit() does not look at what becomes of the bytes that are still buffered.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit())
        return problem(path, file.errorString());
    return {};
}

} // namespace ledra
