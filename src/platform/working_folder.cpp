#include "platform/working_folder.h"

#include "platform/file_reading.h"
#include "platform/folder_tree.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <sys/stat.h>

#include <system_error>

namespace ledra {

std::expected<WorkingFolder, FileError> WorkingFolder::create(const QString& prefix)
{
    const QString unique = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const QString path = QDir::temp().filePath(prefix + u'-' + unique);
    if (::mkdir(QFile::encodeName(path).constData(), S_IRWXU) != 0)
        return systemProblem(path);
    return WorkingFolder(path);
}

WorkingFolder& WorkingFolder::operator=(WorkingFolder&& other) noexcept
{
    std::swap(path_, other.path_);
    return *this;
}

void WorkingFolder::remove() const
{
    if (path_.isEmpty())
        return;
    const std::filesystem::path path(QFile::encodeName(path_).toStdString());
    if (removeTree(path))
        return;
    // What could not be unlocked stays; the rest need not.
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

} // namespace ledra
