#pragma once

#include "platform/file_io.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <expected>
#include <vector>

namespace ledra {

/// What the file system says of a file's state. A file that was written since has another signature, save
/// when it was written in the very moment of the signature: see isSettled().
struct FileSignature
{
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds since 1970, as is the next
    std::int64_t changed = 0;

    friend bool operator==(const FileSignature&, const FileSignature&) = default;
};

/// Whether the file was last written long enough before `now` (nanoseconds since 1970) that a later write
/// cannot have left the same times. The times that file systems keep are coarse.
bool isSettled(const FileSignature& signature, std::int64_t now);

/// Nanoseconds since 1970 by the computer's clock.
std::int64_t currentNanoseconds();

/// A direct entry of a folder. Links count as what they lead to.
struct FolderEntry
{
    QString name;
    bool isFolder = false;
};

/// All direct entries, hidden ones included, in no order. Entries that vanish meanwhile and dangling links
/// are left out.
[[nodiscard]] std::expected<std::vector<FolderEntry>, FileError> listFolder(const QString& folder);

/// An open folder: its files are found without walking the path each time. May be used by several threads at
/// once.
class FolderHandle
{
public:
    /// Of a folder that is missing all files are missing.
    explicit FolderHandle(const QString& path);
    ~FolderHandle();
    FolderHandle(const FolderHandle&) = delete;
    FolderHandle& operator=(const FolderHandle&) = delete;

    [[nodiscard]] std::expected<FileSignature, FileError> signature(const QString& name) const;

    /// Reads a whole file into `content`, whose memory is used again, and returns the state in which it was
    /// read.
    [[nodiscard]] std::expected<FileSignature, FileError> read(const QString& name, qint64 limit,
                                                               QByteArray& content) const;

private:
    QString path_;
    int descriptor_;
};

} // namespace ledra
