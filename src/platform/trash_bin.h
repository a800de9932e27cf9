#pragma once

#include "platform/file_io.h"

#include <QDateTime>
#include <QString>

#include <expected>
#include <vector>

namespace ledra {

/// Something that lies in the trash.
struct TrashedFile
{
    QString originalPath;
    QDateTime deletionDate; ///< local time
    QString path;           ///< where it lies now
};

/// The desktop's trash (freedesktop.org Trash specification 1.0); where that refuses, a folder of the same
/// layout
/// ("files" and "info") of our own.
class TrashBin
{
public:
    /// @param fallback the folder of our own, made when it is needed
    explicit TrashBin(QString fallback) : fallback_(std::move(fallback)) {}

    /// Moves a file or a folder into the trash; returns where it lies now.
    [[nodiscard]] std::expected<QString, FileError> put(const QString& path);

    /// What was deleted from below a folder, the last deleted first, from every trash that put() may have
    /// used.
    std::vector<TrashedFile> filesFrom(const QString& folder) const;

    /// Puts it back where it was; refuses when something else is there now.
    [[nodiscard]] std::expected<void, FileError> restore(const TrashedFile& file);

private:
    QString fallback_;
};

} // namespace ledra
