#pragma once

#include "platform/file_io.h"

#include <expected>
#include <filesystem>

namespace ledra {

/// Copies a file, a link or a folder with all that lies in it to a path where nothing is, with permissions
/// and modification times, and makes it durable, save for its own name. Anything else (a pipe, a device) is
/// an error.
[[nodiscard]] std::expected<void, FileError> copyTree(const std::filesystem::path& from,
                                                      const std::filesystem::path& to);

/// Fails where a copy has other names, other links or other bytes than its original.
[[nodiscard]] std::expected<void, FileError> compareTrees(const std::filesystem::path& original,
                                                          const std::filesystem::path& copy);

} // namespace ledra
