#pragma once

#include "platform/file_io.h"

#include <QString>

#include <expected>
#include <utility>

namespace ledra {

/// A fresh folder among the temporary files that only this user can look into. It is removed with everything
/// in it when the object goes; links in it are removed and not followed. One that a killed process has left
/// goes when the next of its kind is made.
class WorkingFolder
{
public:
    /// Its name begins with the prefix, which tells whose it is where a crash leaves it behind.
    [[nodiscard]] static std::expected<WorkingFolder, FileError> create(const QString& prefix);

    ~WorkingFolder() { remove(); }
    WorkingFolder(WorkingFolder&& other) noexcept
        : path_(std::exchange(other.path_, {})), descriptor_(std::exchange(other.descriptor_, -1))
    {}
    WorkingFolder& operator=(WorkingFolder&& other) noexcept;
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

    QString path() const { return path_; }

private:
    WorkingFolder(QString path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}
    void remove() const;

    QString path_;        ///< empty after a move
    int descriptor_ = -1; ///< holds a lock on the folder, which tells that somebody is using it
};

} // namespace ledra
