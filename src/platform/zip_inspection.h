#pragma once

#include "platform/zip_archive.h"
#include "platform/zip_handle.h"
#include "platform/zip_names.h"

#include <expected>
#include <vector>

namespace ledra {

/// A file in an archive that has passed all checks.
struct PackedFile
{
    zip_uint64_t index = 0;
    QByteArray name;
    qint64 size = 0;
};

struct ArchiveContents
{
    ZipNames names;
    std::vector<PackedFile> files;
};

/// Looks through all entries of an archive of that many bytes and refuses it if one of them is not
/// acceptable.
[[nodiscard]] std::expected<ArchiveContents, ArchiveError> inspectArchive(zip_t* zip, qint64 archiveBytes,
                                                                          const ArchiveLimits& limits);

std::unexpected<ArchiveError> archiveFault(ArchiveFault fault, const QString& reason);

/// An entry could not be unpacked.
std::unexpected<ArchiveError> failedEntry(const QByteArray& name, const QString& reason);

} // namespace ledra
