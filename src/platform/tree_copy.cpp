#include "platform/tree_copy.h"

#include "platform/descriptor.h"
#include "platform/folder_tree.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace ledra {

namespace {

namespace fs = std::filesystem;

using Result = std::expected<void, FileError>;

constexpr qint64 blockSize = 1 << 18;

QString text(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

std::unexpected<FileError> differs(const fs::path& original)
{
    return std::unexpected(FileError{text(original), QStringLiteral("the copy differs")});
}

Result openFile(QFile& file, const fs::path& path, int flags, QIODevice::OpenMode mode)
{
    const int number = ::open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (number < 0)
        return fileError(path, errno);
    if (!file.open(number, mode | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return std::unexpected(FileError{text(path), file.errorString()});
    return {};
}

std::expected<QByteArray, FileError> nextBlock(QFile& file, const fs::path& path)
{
    QByteArray block = file.read(blockSize);
    if (file.error() != QFileDevice::NoError)
        return std::unexpected(FileError{text(path), file.errorString()});
    return block;
}

Result compareContent(const fs::path& original, const fs::path& copy)
{
    QFile first;
    QFile second;
    if (const Result opened = openFile(first, original, O_RDONLY, QIODevice::ReadOnly); !opened)
        return opened;
    if (const Result opened = openFile(second, copy, O_RDONLY, QIODevice::ReadOnly); !opened)
        return opened;
    for (;;) {
        const auto expected = nextBlock(first, original);
        const auto found = nextBlock(second, copy);
        if (!expected || !found)
            return std::unexpected(expected ? found.error() : expected.error());
        if (*expected != *found)
            return differs(original);
        if (expected->isEmpty())
            return {};
    }
}

/// Gives a copied file or folder the permissions and times of its original; returns 0 or the number of the
/// error.
int keepAttributes(const struct stat& original, int copy)
{
    const std::array<timespec, 2> times{original.st_atim, original.st_mtim};
    const bool kept = ::fchmod(copy, original.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) == 0 &&
                      ::futimens(copy, times.data()) == 0;
    // The copy is ours, so that this can only mean that its file system keeps none.
    return kept || errno == EPERM || errno == ENOTSUP ? 0 : errno;
}

/// Completes a copied file or folder.
int settle(const struct stat& original, int copy, Durability durability)
{
    const int code = keepAttributes(original, copy);
    return code == 0 && durability == Durability::each ? syncDescriptor(copy) : code;
}

/// Copies what is left to be read; returns 0 or the number of the error.
int copyContent(const Descriptor& from, const Descriptor& to)
{
    std::array<char, 65'536> block; // left as it is: clearing it for ten thousand small files takes longer
    for (;;) {
        const ssize_t length = ::read(from.number(), block.data(), block.size());
        if (length == 0)
            return 0;
        if (length < 0 && errno != EINTR)
            return errno;
        if (!to.writeAll({block.data(), std::max<ssize_t>(length, 0)}))
            return errno;
    }
}

Result copyFile(const fs::path& from, const struct stat& original, const fs::path& to, Durability durability)
{
    const Descriptor source(::open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!source.isOpen())
        return fileError(from, errno);
    const Descriptor target(
        ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!target.isOpen())
        return fileError(to, errno);
    if (const int code = copyContent(source, target); code != 0)
        return fileError(to, code);
    const int code = settle(original, target.number(), durability);
    return code == 0 ? Result() : fileError(to, code);
}

Result copyLink(const fs::path& from, const struct stat& original, const fs::path& to)
{
    std::error_code problem;
    const fs::path target = fs::read_symlink(from, problem);
    if (problem)
        return fileError(from, problem.value());
    const std::array<timespec, 2> times{original.st_atim, original.st_mtim};
    if (::symlink(target.c_str(), to.c_str()) != 0 ||
        ::utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW) != 0)
        return fileError(to, errno);
    return {};
}

Result copyFolder(const fs::path& from, const struct stat& original, const fs::path& to,
                  Durability durability)
{
    if (::mkdir(to.c_str(), S_IRWXU) != 0)
        return fileError(to, errno);
    const auto names = namesIn(from);
    if (!names)
        return std::unexpected(names.error());
    for (const fs::path& name : *names) {
        if (const Result copied = copyTree(from / name, to / name, durability); !copied)
            return copied;
    }
    const Descriptor copy(::open(to.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const int code = copy.isOpen() ? settle(original, copy.number(), durability) : errno;
    return code == 0 ? Result() : fileError(to, code);
}

Result compareFolders(const fs::path& original, const fs::path& copy)
{
    const auto names = namesIn(original);
    const auto copied = namesIn(copy);
    if (!names || !copied)
        return std::unexpected(names ? copied.error() : names.error());
    if (*names != *copied)
        return differs(original);
    for (const fs::path& name : *names) {
        if (const Result same = compareTrees(original / name, copy / name); !same)
            return same;
    }
    return {};
}

} // namespace

fs::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

Result copyTree(const fs::path& from, const fs::path& to, Durability durability)
{
    const auto original = statusOf(from);
    if (!original)
        return std::unexpected(original.error());
    if (S_ISREG(original->st_mode))
        return copyFile(from, *original, to, durability);
    if (S_ISLNK(original->st_mode))
        return copyLink(from, *original, to);
    if (S_ISDIR(original->st_mode))
        return copyFolder(from, *original, to, durability);
    return std::unexpected(FileError{text(from), QStringLiteral("neither a file nor a folder")});
}

Result syncFileSystem(const fs::path& folder)
{
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int code = number >= 0 && ::syncfs(number) == 0 ? 0 : errno;
    if (number >= 0)
        ::close(number);
    return code == 0 ? Result() : fileError(folder, code);
}

Result compareTrees(const fs::path& original, const fs::path& copy)
{
    const auto first = statusOf(original);
    const auto second = statusOf(copy);
    if (!first || !second)
        return std::unexpected(first ? second.error() : first.error());
    if ((first->st_mode & S_IFMT) != (second->st_mode & S_IFMT))
        return differs(original);
    if (S_ISDIR(first->st_mode))
        return compareFolders(original, copy);
    if (S_ISREG(first->st_mode))
        return compareContent(original, copy);
    std::error_code problem;
    const bool same = fs::read_symlink(original, problem) == fs::read_symlink(copy, problem);
    return same && !problem ? Result() : differs(original);
}

} // namespace ledra
