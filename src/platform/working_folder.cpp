#include "platform/working_folder.h"

#include "platform/file_reading.h"
#include "platform/folder_tree.h"
#include "platform/tree_copy.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <system_error>

namespace ledra {

namespace {

/// Opens a folder and locks it, as long as nobody else has; -1 if not.
int lockedFolder(const QString& path)
{
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor >= 0 && ::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

/// Removes what killed processes have left: folders that nobody holds. Young ones are left alone, since their
/// maker may be about to lock them.
void removeLeftovers(const QString& prefix)
{
    constexpr int youth = 60; // seconds
    for (const QFileInfo& info : QDir::temp().entryInfoList({prefix + QStringLiteral("-*")}, QDir::Dirs)) {
        const bool isOld = info.lastModified().secsTo(QDateTime::currentDateTime()) > youth;
        if (!isOld || info.isSymLink() || info.ownerId() != ::getuid())
            continue;
        const int descriptor = lockedFolder(info.absoluteFilePath());
        if (descriptor < 0)
            continue;
        (void)removeTree(nativePath(info.absoluteFilePath())); // else the next one tries again
        ::close(descriptor);
    }
}

} // namespace

std::expected<WorkingFolder, FileError> WorkingFolder::create(const QString& prefix)
{
    removeLeftovers(prefix);
    const QString unique = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const QString path = QDir::temp().filePath(prefix + u'-' + unique);
    if (::mkdir(QFile::encodeName(path).constData(), S_IRWXU) != 0)
        return systemProblem(path);
    return WorkingFolder(path, lockedFolder(path));
}

WorkingFolder& WorkingFolder::operator=(WorkingFolder&& other) noexcept
{
    std::swap(path_, other.path_);
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

void WorkingFolder::remove() const
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
    if (path_.isEmpty())
        return;
    const std::filesystem::path path = nativePath(path_);
    if (removeTree(path))
        return;
    // What could not be unlocked stays; the rest need not.
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

} // namespace ledra
