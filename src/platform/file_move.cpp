#include "platform/file_move.h"

#include "platform/folder_tree.h"
#include "platform/tree_copy.h"

#include <QFile>
#include <QUuid>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace ledra {

namespace {

namespace fs = std::filesystem;

/// Absolute and without a slash at the end, which would have a link followed.
fs::path systemPath(const QString& path)
{
    std::error_code problem; // an empty path stays empty, and is then what does not exist
    const fs::path absolute = fs::absolute(QFile::encodeName(path).toStdString(), problem);
    return absolute.has_filename() ? absolute : absolute.parent_path();
}

/// A new name beside a path; where a crash leaves something under it, the name tells whose it is.
fs::path hiddenNameBeside(const fs::path& path)
{
    const QString name = QStringLiteral(".ledra-move-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    return path.parent_path() / name.toStdString();
}

bool isTaken(const fs::path& path)
{
    return statusOf(path).has_value();
}

/// Gives a name that is free; returns 0 or the number of the error.
int renameToFree(const fs::path& from, const fs::path& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (isTaken(
            to)) // a network file system may not know the flag; EINVAL is also what a move into itself gives
        return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

/// Names the path that is to blame.
std::unexpected<FileError> moveError(const fs::path& from, const fs::path& to, int code)
{
    const bool isAboutName = code == ENOENT || code == ENOTDIR || code == ENAMETOOLONG;
    return fileError(code == EEXIST || (isAboutName && isTaken(from)) ? to : from, code);
}

/// A folder that would be copied into itself would never come to an end.
bool liesWithin(const fs::path& path, const fs::path& folder)
{
    std::error_code problem;
    const fs::path inner = fs::weakly_canonical(path.parent_path(), problem);
    const fs::path outer = fs::weakly_canonical(folder, problem);
    return std::ranges::mismatch(outer, inner).in1 == outer.end();
}

/// Copies, looks whether the copy is good and gives it its name.
std::expected<void, FileError> copyInPlace(const fs::path& from, const fs::path& copy, const fs::path& to)
{
    if (const auto copied = copyTree(from, copy); !copied)
        return copied;
    if (const auto same = compareTrees(from, copy); !same)
        return same;
    if (const int code = renameToFree(copy, to); code != 0)
        return fileError(to, code);
    return {};
}

/// Takes a copy away after a failure; returns the failure.
std::unexpected<FileError> withdraw(const fs::path& copy, FileError failure)
{
    if (const auto removed = removeTree(copy); !removed)
        failure.reason += QStringLiteral("; the copy remains: ") + removed.error().text();
    return std::unexpected(failure);
}

/// The copy is in place: the source goes in one step, so that it is never half there under its name.
std::expected<void, FileError> takeSourceAway(const fs::path& from, const fs::path& to)
{
    if (const auto synced = syncFolder(to.parent_path()); !synced)
        return withdraw(to, synced.error());
    const fs::path aside = hiddenNameBeside(from);
    if (const int code = renameToFree(from, aside); code != 0)
        return withdraw(to, fileError(from, code).error());
    return removeTree(aside);
}

std::expected<void, FileError> copyAndDelete(const fs::path& from, const fs::path& to)
{
    if (isTaken(to))
        return fileError(to, EEXIST);
    const auto source = statusOf(from);
    if (!source)
        return std::unexpected(source.error());
    if (S_ISDIR(source->st_mode) && liesWithin(to, from))
        return fileError(from, EINVAL);
    const fs::path copy = hiddenNameBeside(to);
    if (const auto placed = copyInPlace(from, copy, to); !placed)
        return withdraw(copy, placed.error());
    return takeSourceAway(from, to);
}

} // namespace

std::expected<void, FileError> moveFile(const QString& from, const QString& to)
{
    const fs::path source = systemPath(from);
    const fs::path target = systemPath(to);
    const int code = renameToFree(source, target);
    if (code == EXDEV)
        return copyAndDelete(source, target);
    if (code != 0)
        return moveError(source, target, code);
    return {};
}

std::expected<void, FileError> moveByCopying(const QString& from, const QString& to)
{
    return copyAndDelete(systemPath(from), systemPath(to));
}

} // namespace ledra
