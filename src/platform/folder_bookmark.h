#pragma once

#include <QByteArray>
#include <QString>

#include <expected>

namespace ledra {

/// Where a bookmark leads now.
struct ResolvedBookmark
{
    QString path;
    bool isStale = false; ///< the path names another folder than the one that was chosen
};

/// Remembers a folder that the user chose: an opaque blob of its path and an identity that survives a reboot
/// and a remount (inode number and file-system id). A folder that is yet to be made has no identity:
/// whichever folder is at the path later is the one.
QByteArray makeFolderBookmark(const QString& folder);

/// Reads such a blob; the error says why it is none. A path at which nothing is resolves: the folder will be
/// made anew.
[[nodiscard]] std::expected<ResolvedBookmark, QString> resolveFolderBookmark(const QByteArray& blob);

/// Whether this process may list the folder and open what lies in it. A missing folder counts as accessible,
/// since it can be made.
bool isAccessibleFolder(const QString& folder);

} // namespace ledra
