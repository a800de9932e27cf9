#include "platform/folder_listing.h"

#include "platform/file_reading.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>

namespace ledra {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

bool isDots(const char* name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

/// Whether an entry is a folder; nothing when it has gone. Only links, and file systems that do not say, cost
/// a look.
std::optional<bool> isFolder(int directory, const dirent& entry)
{
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat state = {};
    if (::fstatat(directory, entry.d_name, &state, 0) != 0)
        return std::nullopt;
    return S_ISDIR(state.st_mode);
}

} // namespace

bool isSettled(const FileSignature& signature, std::int64_t now)
{
    // FAT keeps two seconds; others keep nanoseconds, but take them from a clock that ticks every few
    // milliseconds.
    constexpr std::int64_t coarse = 2 * nanosecondsPerSecond;
    constexpr std::int64_t fine = nanosecondsPerSecond / 20;
    const bool isCoarse = signature.modified % nanosecondsPerSecond == 0;
    return std::max(signature.modified, signature.changed) + (isCoarse ? coarse : fine) < now;
}

std::int64_t currentNanoseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

std::expected<std::vector<FolderEntry>, FileError> listFolder(const QString& folder)
{
    const auto close = [](DIR* open) { ::closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> directory(::opendir(QFile::encodeName(folder).constData()),
                                                          close);
    if (!directory)
        return systemProblem(folder);
    std::vector<FolderEntry> entries;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(directory.get());
        if (!entry && errno != 0)
            return systemProblem(folder);
        if (!entry)
            return entries;
        if (isDots(entry->d_name))
            continue;
        if (const std::optional<bool> found = isFolder(::dirfd(directory.get()), *entry))
            entries.push_back({QFile::decodeName(entry->d_name), *found});
    }
}

FolderHandle::FolderHandle(const QString& path)
    : path_(path),
      descriptor_(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{}

FolderHandle::~FolderHandle()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

std::expected<FileSignature, FileError> FolderHandle::signature(const QString& name) const
{
    struct stat state = {};
    if (::fstatat(descriptor_, QFile::encodeName(name).constData(), &state, 0) != 0)
        return systemProblem(path_ + u'/' + name);
    return signatureFrom(state);
}

std::expected<FileSignature, FileError> FolderHandle::read(const QString& name, qint64 limit,
                                                           QByteArray& content) const
{
    const QString path = path_ + u'/' + name;
    if (descriptor_ < 0)
        return fileProblem(path, QStringLiteral("no such file"));
    return readFileAt(descriptor_, name, path, limit, content);
}

} // namespace ledra
