#pragma once

#include "platform/file_io.h"

#include <QString>

#include <cstdint>
#include <expected>
#include <vector>

namespace ledra {

/// What the file system says of a file's state. A file that was written since has another signature, save when it
/// was written in the very moment of the signature: see isSettled().
struct FileSignature
{
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970, as is the next
    std::int64_t changed = 0;

    friend bool operator==(const FileSignature&, const FileSignature&) = default;
};

/// Whether the file was last written long enough before `now` (nanoseconds since 1970) that a later write cannot
/// have left the same times. The times that file systems keep are coarse.
bool isSettled(const FileSignature& signature, std::int64_t now);

/// Nanoseconds since 1970 by the computer's clock.
std::int64_t currentNanoseconds();

/// A direct entry of a folder.
struct FolderEntry
{
    QString name;
    bool isFolder = false;
    FileSignature signature;
};

/// All direct entries, hidden ones included, in no order. Entries that vanish meanwhile are left out; links are
/// followed, and dangling ones left out.
[[nodiscard]] std::expected<std::vector<FolderEntry>, FileError> listFolder(const QString& folder);

/// The state of one file.
[[nodiscard]] std::expected<FileSignature, FileError> signatureOf(const QString& path);

} // namespace ledra
