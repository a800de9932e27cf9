#pragma once

#include "platform/file_io.h"

#include <QString>

#include <expected>

namespace ledra {

/// Moves a file or a folder with all that lies in it to a path where nothing is yet. On the same file system
/// this is one step. Otherwise everything is copied beside the target under a hidden name, made durable,
/// compared byte by byte and put in place, and only then the source is deleted; when anything fails on the
/// way the copy is removed and the source is whole. A source that cannot be taken away counts as such a
/// failure.
[[nodiscard]] std::expected<void, FileError> moveFile(const QString& from, const QString& to);

/// The same without trying the one step first; for tests, which have one file system only.
[[nodiscard]] std::expected<void, FileError> moveByCopying(const QString& from, const QString& to);

} // namespace ledra
