#pragma once

#include "platform/file_device.h"

#include <QByteArray>
#include <QString>

#include <expected>
#include <optional>
#include <vector>

namespace ledra {

/// A version of a data file that had to give way to another one.
struct Conflict
{
    int number = 0; ///< stays the same as long as the version is kept
    QString target; ///< the data file that it was a version of
    QString path;   ///< where it is kept
};

/// The versions that somebody else wrote while this program held another one, kept under "Conflicts": each as
/// the plain file that it was, beside a file "N.origin" that names its place.
class ConflictStore
{
public:
    ConflictStore(QString folder, FileDevice& device);

    /// Durable when it returns.
    [[nodiscard]] std::expected<Conflict, FileError> keep(const QString& target, const QByteArray& content);

    /// In the order of their numbers.
    std::vector<Conflict> all() const;

    /// The kept file itself has gone elsewhere.
    [[nodiscard]] std::expected<void, FileError> forget(int number);

    /// A folder that holds data files has moved: versions of its files follow.
    void relocate(const QString& from, const QString& to);

private:
    QString originFile(int number) const;
    [[nodiscard]] std::expected<void, FileError> writeDurably(const QString& path, const QByteArray& content);

    QString folder_;
    FileDevice& device_;
};

} // namespace ledra
