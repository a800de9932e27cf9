#pragma once

#include "store/store_context.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ledra {

/// What a migration did.
struct Migration
{
    QStringList moved;  ///< names of profile folders
    QStringList stayed; ///< those whose name is taken at the destination
    std::optional<QString> error;
};

/// The folder that holds the profiles: "Data" in the application's support folder, or one that the user
/// chose.
class DataFolder
{
public:
    explicit DataFolder(StoreContext& context) : context_(context) {}

    /// Takes up the folder that was chosen in an earlier run.
    void restore();

    /// The folder in force, made if it is missing. Never fails: what is wrong shows when it is used.
    QString path() const;

    /// The same without making it: for looking, which must not put an empty folder in the place of one that
    /// is away and may come back.
    QString place() const { return customPath_.value_or(defaultPath()); }

    const std::optional<QString>& customPath() const { return customPath_; }

    Migration setCustomPath(const QString& folder, const std::optional<QString>& previous);
    Migration resetToDefault();
    void clearBookmark();

private:
    QString defaultPath() const;
    Migration migrate(const QString& source, const QString& destination, const QString& description);
    void moveProfiles(const QString& source, const QString& destination, Migration& migration);

    StoreContext& context_;
    std::optional<QString> customPath_;
    mutable QString
        inaccessible_; ///< the folder of which the console has been told that it cannot be accessed
};

/// Why nothing can be written into a profile's folder: there is none, or it is away, as with a stick that was
/// pulled. Nothing is to be made anew in its place, where the records would lie beside those that come back.
std::optional<QString> profileFolderProblem(const QString& folder);

/// The same for the folder of its invoices, which itself is made on first need.
std::optional<QString> invoicesFolderProblem(const QString& folder);

/// Whether a folder is a profile's.
bool isProfileFolder(const QString& folder);

} // namespace ledra
