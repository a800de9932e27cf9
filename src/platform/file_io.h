#pragma once

#include <QByteArray>
#include <QString>

#include <expected>
#include <functional>

class QFileDevice;

namespace ledra {

/// Why a file could not be read or written, in the words of the operating system.
struct FileError
{
    QString path;
    QString reason;

    /// One line: path and reason.
    QString text() const { return path + QStringLiteral(": ") + reason; }
};

/// What stands for the standard input or output where a file is named.
inline constexpr QStringView standardStream = u"-";

/// Reads a whole regular file, or the standard input, of at most `limit` bytes.
[[nodiscard]] std::expected<QByteArray, FileError> readFile(const QString& path, qint64 limit);

enum class Overwrite { refuse, replace };

/// Writes an export: the content goes to a temporary file beside the target, is made durable and takes the
/// target's name in one step, so that no half-written export is ever seen. Every export goes through here.
[[nodiscard]] std::expected<void, FileError> writeExport(const QString& path, const QByteArray& content,
                                                         Overwrite overwrite);

/// Writes what an export consists of into an open file, in any order.
using ExportWriter = std::function<std::expected<void, FileError>(QFileDevice& file)>;

/// The same for content that is made while it is written. If the writer fails, so does the export.
[[nodiscard]] std::expected<void, FileError> writeExport(const QString& path, const ExportWriter& write,
                                                         Overwrite overwrite);

} // namespace ledra
