#pragma once

#include "platform/file_io.h"

#include <sys/stat.h>

#include <expected>
#include <filesystem>
#include <vector>

// Files, links and folders with all that lies in them, below the level of Qt: paths are the system's own
// bytes here, since a name that is no text must not get lost when its folder is moved.
namespace ledra {

/// What the operating system says to a failure.
std::unexpected<FileError> fileError(const std::filesystem::path& path, int code);

/// What has this name; a link is not followed.
[[nodiscard]] std::expected<struct stat, FileError> statusOf(const std::filesystem::path& path);

/// The names in a folder, sorted.
[[nodiscard]] std::expected<std::vector<std::filesystem::path>, FileError>
namesIn(const std::filesystem::path& folder);

/// Makes an open file or folder durable; returns 0 or the number of the error.
int syncDescriptor(int number);

/// Makes the names in a folder durable.
[[nodiscard]] std::expected<void, FileError> syncFolder(const std::filesystem::path& folder);

/// Deletes a file, a link or a folder with all that lies in it, write-protected folders too. Nothing to
/// delete is no error.
[[nodiscard]] std::expected<void, FileError> removeTree(const std::filesystem::path& path);

} // namespace ledra
