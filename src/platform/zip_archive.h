#pragma once

#include "platform/file_io.h"

#include <QString>

#include <expected>

// ZIP archives: data files, style files, plugin packages. Everything that Ledra packs or unpacks goes through
// here.
namespace ledra {

/// Packs everything below a folder: regular files and folders, in the order of their names, with their
/// modification times. Anything else, a name that extractArchive() would refuse, and a folder with nothing in
/// it are errors. The archive is written like any export, and its name is durable when this returns.
[[nodiscard]] std::expected<void, FileError> writeArchive(const QString& folder, const QString& target,
                                                          Overwrite overwrite);

enum class ArchiveFault {
    notAnArchive, ///< it is none, is not there or cannot be read: it cannot be opened as one at all
    refused,      ///< an archive that no honest program makes, or beyond the limits; nothing was written
    failed,       ///< damaged, or a file in it could not be unpacked
};

struct ArchiveError
{
    ArchiveFault fault;
    QString reason; ///< one line
};

/// What an archive may unpack to.
struct ArchiveLimits
{
    /// All files together: a hundred times 10,000 invoices of 4 KB.
    qint64 totalBytes = qint64{4} << 30;
    /// Files and folders, those included that are only named as part of a path: they take memory and inodes.
    int entries = 500'000;
    /// A single file.
    qint64 fileBytes = qint64{1} << 30;
    /// How many bytes one byte of the archive may stand for, on the whole. JSON of nothing but equal items
    /// reaches 300; files that are made to fill disks reach 1000.
    qint64 ratio = 500;
};

/// What may be unpacked whatever the ratio is, since it does no harm.
inline constexpr qint64 harmlessBytes = qint64{64} << 20;

/// Unpacks an archive into a folder that exists and is empty. The archive may come from anybody: all entries
/// are checked before anything is written, nothing is written outside of the folder, and permissions are the
/// ordinary ones. When it fails half-way, what is there stays for the caller to remove with the folder.
[[nodiscard]] std::expected<void, ArchiveError> extractArchive(const QString& archive, const QString& folder,
                                                               const ArchiveLimits& limits = {});

} // namespace ledra
