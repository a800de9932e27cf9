#include "platform/folder_listing.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>

namespace ledra {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

std::int64_t nanoseconds(const timespec& time)
{
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

FileSignature signatureFrom(const struct stat& state)
{
    return {state.st_ino, state.st_size, nanoseconds(state.st_mtim), nanoseconds(state.st_ctim)};
}

std::unexpected<FileError> systemError(const QString& path)
{
    return std::unexpected(FileError{path, QString::fromLocal8Bit(std::strerror(errno))});
}

bool isDots(const char* name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

} // namespace

bool isSettled(const FileSignature& signature, std::int64_t now)
{
    // FAT keeps two seconds; others keep nanoseconds, but take them from a clock that ticks every few milliseconds.
    constexpr std::int64_t coarse = 2 * nanosecondsPerSecond;
    constexpr std::int64_t fine = nanosecondsPerSecond / 20;
    const bool isCoarse = signature.modified % nanosecondsPerSecond == 0;
    return std::max(signature.modified, signature.changed) + (isCoarse ? coarse : fine) < now;
}

std::int64_t currentNanoseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return nanoseconds(now);
}

std::expected<std::vector<FolderEntry>, FileError> listFolder(const QString& folder)
{
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> directory(::opendir(QFile::encodeName(folder).constData()),
                                                          close);
    if (!directory)
        return systemError(folder);
    std::vector<FolderEntry> entries;
    errno = 0;
    while (const dirent* entry = ::readdir(directory.get())) {
        struct stat state = {};
        if (isDots(entry->d_name) || ::fstatat(::dirfd(directory.get()), entry->d_name, &state, 0) != 0) {
            errno = 0;
            continue;
        }
        entries.push_back({QFile::decodeName(entry->d_name), S_ISDIR(state.st_mode), signatureFrom(state)});
        errno = 0;
    }
    if (errno != 0)
        return systemError(folder);
    return entries;
}

std::expected<FileSignature, FileError> signatureOf(const QString& path)
{
    struct stat state = {};
    if (::stat(QFile::encodeName(path).constData(), &state) != 0)
        return systemError(path);
    return signatureFrom(state);
}

} // namespace ledra
