#pragma once

#include "platform/file_io.h"
#include "platform/trash_bin.h"

#include <QString>

#include <expected>
#include <vector>

namespace ledra {

/// One folder of trash: what was deleted lies in "files", and for each of them one in "info" tells whence and
/// when (freedesktop.org Trash specification 1.0).
struct TrashFolder
{
    QString path;
    QString top; ///< where the relative paths in it start; empty where all of them are absolute

    /// What lies in it. What has no complete and readable entry is left out, whoever wrote it.
    std::vector<TrashedFile> entries() const;

    /// Moves a file or a folder into it; returns where it lies now. The folder is made if it is missing.
    [[nodiscard]] std::expected<QString, FileError> put(const QString& source) const;

    QString filePath(const QString& name) const { return path + QStringLiteral("/files/") + name; }
    QString infoPath(const QString& name) const
    {
        return path + QStringLiteral("/info/") + name + QStringLiteral(".trashinfo");
    }
};

/// Where the entry of something in a trash lies.
QString infoPathOf(const QString& trashedPath);

/// Writes an entry: the path, percent-encoded, and now as the time.
[[nodiscard]] std::expected<void, FileError> writeInfo(const QString& infoPath, const QString& source);

} // namespace ledra
