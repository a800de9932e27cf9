#include "platform/file_reading.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace ledra {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

std::unexpected<FileError> tooLarge(const QString& path, qint64 limit)
{
    return fileProblem(path, QStringLiteral("larger than %1 MB").arg(limit >> 20));
}

std::expected<FileSignature, FileError> readOpened(int descriptor, const QString& path, qint64 limit,
                                                   QByteArray& content)
{
    struct stat state = {};
    if (::fstat(descriptor, &state) != 0)
        return systemProblem(path);
    if (!S_ISREG(state.st_mode))
        return fileProblem(path, QStringLiteral("not a file"));
    if (state.st_size > limit)
        return tooLarge(path, limit);
    if (const auto read = readAll(descriptor, path, state.st_size, limit, content); !read)
        return std::unexpected(read.error());
    return signatureFrom(state);
}

} // namespace

std::unexpected<FileError> fileProblem(const QString& path, const QString& reason)
{
    return std::unexpected(FileError{path, reason});
}

std::unexpected<FileError> systemProblem(const QString& path)
{
    return fileProblem(path, errno == ENOENT ? QStringLiteral("no such file")
                                             : QString::fromLocal8Bit(std::strerror(errno)));
}

FileSignature signatureFrom(const struct stat& state)
{
    const auto nanoseconds = [](const timespec& time) {
        return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
    };
    return {state.st_ino, state.st_size, nanoseconds(state.st_mtim), nanoseconds(state.st_ctim)};
}

std::expected<void, FileError> readAll(int descriptor, const QString& path, qint64 expected, qint64 limit,
                                       QByteArray& content)
{
    content.resize(std::min(expected, limit) + 1);
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
    return {};
}

std::expected<FileSignature, FileError> readFileAt(int folder, const QString& name, const QString& path,
                                                   qint64 limit, QByteArray& content)
{
    // Without blocking, since opening a pipe would wait for a writer.
    const int descriptor =
        ::openat(folder, QFile::encodeName(name).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return systemProblem(path);
    std::expected<FileSignature, FileError> signature = readOpened(descriptor, path, limit, content);
    ::close(descriptor);
    return signature;
}

} // namespace ledra
