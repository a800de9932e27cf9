#pragma once

#include "platform/file_io.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace ledra {

/// The few operations on files from which saving is built. Tests put a device in place that fails, or that
/// records what was done and loses what was not made durable.
class FileDevice
{
public:
    virtual ~FileDevice() = default;

    /// The whole content of at most `limit` bytes; nothing when there is no such file.
    [[nodiscard]] virtual std::expected<std::optional<QByteArray>, FileError> read(const QString& path,
                                                                                   qint64 limit) = 0;

    /// Puts the content into the file itself, which is made if it is missing and cut to nothing if not.
    /// Neither the content nor the name is durable after this.
    [[nodiscard]] virtual std::expected<void, FileError> write(const QString& path,
                                                               const QByteArray& content) = 0;

    /// Makes a file's content durable.
    [[nodiscard]] virtual std::expected<void, FileError> sync(const QString& path) = 0;

    /// Makes the names in a folder durable.
    [[nodiscard]] virtual std::expected<void, FileError> syncFolder(const QString& folder) = 0;

    /// Gives a file another name in one step, in place of a file that has it.
    [[nodiscard]] virtual std::expected<void, FileError> rename(const QString& from, const QString& to) = 0;

    [[nodiscard]] virtual std::expected<void, FileError> remove(const QString& path) = 0;

    /// Makes a folder and those above it; their names are durable when it returns.
    [[nodiscard]] virtual std::expected<void, FileError> makeFolder(const QString& folder) = 0;

    /// The names of the files in a folder, sorted; none when there is no such folder.
    [[nodiscard]] virtual QStringList files(const QString& folder) = 0;
};

/// The computer's own file system.
class SystemFileDevice : public FileDevice
{
public:
    std::expected<std::optional<QByteArray>, FileError> read(const QString& path, qint64 limit) override;
    std::expected<void, FileError> write(const QString& path, const QByteArray& content) override;
    std::expected<void, FileError> sync(const QString& path) override;
    std::expected<void, FileError> syncFolder(const QString& folder) override;
    std::expected<void, FileError> rename(const QString& from, const QString& to) override;
    std::expected<void, FileError> remove(const QString& path) override;
    std::expected<void, FileError> makeFolder(const QString& folder) override;
    QStringList files(const QString& folder) override;
};

} // namespace ledra
