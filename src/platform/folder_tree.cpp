#include "platform/folder_tree.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace ledra {

namespace {

namespace fs = std::filesystem;

using Result = std::expected<void, FileError>;

/// Lets the owner delete what lies in write-protected folders.
Result unlockFolders(const fs::path& path)
{
    const auto status = statusOf(path);
    if (!status || !S_ISDIR(status->st_mode))
        return {};
    if ((status->st_mode & S_IRWXU) != S_IRWXU && ::chmod(path.c_str(), status->st_mode | S_IRWXU) != 0)
        return fileError(path, errno);
    const auto names = namesIn(path);
    if (!names)
        return std::unexpected(names.error());
    for (const fs::path& name : *names) {
        if (const Result unlocked = unlockFolders(path / name); !unlocked)
            return unlocked;
    }
    return {};
}

} // namespace

std::unexpected<FileError> fileError(const fs::path& path, int code)
{
    return std::unexpected(
        FileError{QFile::decodeName(path.c_str()), QString::fromLocal8Bit(std::strerror(code))});
}

std::expected<struct stat, FileError> statusOf(const fs::path& path)
{
    struct stat status = {};
    if (::lstat(path.c_str(), &status) != 0)
        return fileError(path, errno);
    return status;
}

std::expected<std::vector<fs::path>, FileError> namesIn(const fs::path& folder)
{
    std::error_code problem;
    std::vector<fs::path> names;
    for (fs::directory_iterator entry(folder, problem); !problem && entry != fs::directory_iterator();
         entry.increment(problem))
        names.push_back(entry->path().filename());
    if (problem)
        return fileError(folder, problem.value());
    std::ranges::sort(names);
    return names;
}

int syncDescriptor(int number)
{
    const bool synced = ::fsync(number) == 0 || errno == EINVAL; // EINVAL: the file system has no such step
    return synced ? 0 : errno;
}

Result removeTree(const fs::path& path)
{
    if (const Result unlocked = unlockFolders(path); !unlocked)
        return unlocked;
    std::error_code problem;
    fs::remove_all(path, problem);
    return problem ? Result(fileError(path, problem.value())) : Result();
}

Result syncFolder(const fs::path& folder)
{
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0)
        return fileError(folder, errno);
    const int code = syncDescriptor(number);
    ::close(number);
    return code == 0 ? Result() : fileError(folder, code);
}

} // namespace ledra
