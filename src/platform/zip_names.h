#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <expected>
#include <utility>
#include <vector>

namespace ledra {

/// A name from an archive in a message: on one line, not too long and without control characters.
QString shownName(const QByteArray& name);

/// The names in an archive, each of which has to be fit for a path below a folder and to mean a place of its
/// own. Names of folders end in a slash.
class ZipNames
{
public:
    /// Adds a name; says what is wrong with one that cannot be accepted.
    [[nodiscard]] std::expected<void, QString> add(const QByteArray& name);

    /// How many folders the names need.
    std::size_t folderCount() const { return folders_.size(); }

    /// The path of one of them, which comes after the one in which it lies, without the slash at the end.
    QByteArray folderPath(std::size_t at) const;

    /// How many files and folders there are.
    qsizetype count() const { return places_.size(); }

private:
    enum class Kind { file, folder, impliedFolder };
    struct Place
    {
        QByteArray name; ///< as the archive spells it
        Kind kind;
        int folder; ///< its number if it is one
    };
    struct Folder
    {
        int parent;
        QByteArray name;
    };
    /// A folder's number and a name in it in the normal form of Unicode: some file systems do not keep apart
    /// what differs in its form only. Numbers, since the paths of all folders could take memory beyond
    /// bounds.
    using Key = std::pair<int, QString>;

    static constexpr int root = 0; // the first folder has the number 1

    std::expected<int, QString> addPlace(int folder, const QByteArray& name, Kind kind);
    std::expected<int, QString> folderOf(const QByteArray& path);

    QHash<Key, Place> places_;
    std::vector<Folder> folders_;
    QByteArray latestPath_; ///< of the folder that was needed last, which most often is needed next
    int latestFolder_ = root;
};

} // namespace ledra
