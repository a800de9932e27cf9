#pragma once

#include "platform/file_io.h"

#include <QString>

#include <expected>
#include <utility>

namespace ledra {

/// A fresh folder among the temporary files that only this user can look into. It is removed with everything
/// in it when the object goes; links in it are removed and not followed.
class WorkingFolder
{
public:
    /// Its name begins with the prefix, which tells whose it is where a crash leaves it behind.
    [[nodiscard]] static std::expected<WorkingFolder, FileError> create(const QString& prefix);

    ~WorkingFolder() { remove(); }
    WorkingFolder(WorkingFolder&& other) noexcept : path_(std::exchange(other.path_, {})) {}
    WorkingFolder& operator=(WorkingFolder&& other) noexcept;
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

    QString path() const { return path_; }

private:
    explicit WorkingFolder(QString path) : path_(std::move(path)) {}
    void remove() const;

    QString path_; ///< empty after a move
};

} // namespace ledra
