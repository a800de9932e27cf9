#pragma once

#include "platform/folder_listing.h"

#include <QByteArray>
#include <QString>

#include <expected>

struct stat;

namespace ledra {

// What all reading of files is built from.

std::unexpected<FileError> fileProblem(const QString& path, const QString& reason);

/// In the words of the operating system (errno).
std::unexpected<FileError> systemProblem(const QString& path);

FileSignature signatureFrom(const struct stat& state);

/// Reads until the end, at most `limit` bytes, into `content`; `expected` is a good guess of how many there
/// are.
[[nodiscard]] std::expected<void, FileError> readAll(int descriptor, const QString& path, qint64 expected,
                                                     qint64 limit, QByteArray& content);

/// Reads a regular file that is named relative to an open folder, or to the current one (AT_FDCWD). `path` is
/// for messages. Returns the state in which the file was read.
[[nodiscard]] std::expected<FileSignature, FileError>
readFileAt(int folder, const QString& name, const QString& path, qint64 limit, QByteArray& content);

} // namespace ledra
