#pragma once

#include "platform/file_io.h"

#include <expected>
#include <filesystem>

namespace ledra {

/// A path as the file system's functions take it.
std::filesystem::path nativePath(const QString& path);

enum class Durability {
    each, ///< every file is made durable as soon as it is there
    none, ///< for what is temporary, or followed by syncFileSystem()
};

/// Copies a file, a link or a folder with all that lies in it to a path where nothing is, with permissions
/// and modification times, and makes it durable, save for its own name. Anything else (a pipe, a device) is
/// an error.
[[nodiscard]] std::expected<void, FileError> copyTree(const std::filesystem::path& from,
                                                      const std::filesystem::path& to,
                                                      Durability durability = Durability::each);

/// Makes everything durable that was written to the file system of a folder: of ten thousand files at once at
/// the price of a few.
[[nodiscard]] std::expected<void, FileError> syncFileSystem(const std::filesystem::path& folder);

/// Fails where a copy has other names, other links or other bytes than its original.
[[nodiscard]] std::expected<void, FileError> compareTrees(const std::filesystem::path& original,
                                                          const std::filesystem::path& copy);

} // namespace ledra
