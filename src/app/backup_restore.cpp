#include "app/backup_restore.h"

#include "app/data_file_import.h"

#include <QDir>

namespace ledra {

bool isUntouched(const ProfileManager& profiles, const QString& region)
{
    if (profiles.profiles().size() != 1)
        return false;
    const Profile& only = **profiles.profiles().front();
    if (!profiles.profileFolder(only))
        return false;
    Profile fresh = newProfile(only.id, region);
    fresh.profileName = only.profileName;
    const QString folder = *profiles.profileFolder(only);
    const QStringList files = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    const QDir invoices(folder + QStringLiteral("/Invoices"));
    return only == fresh && files == QStringList{QStringLiteral("profile.json")} &&
           (!invoices.exists() || invoices.isEmpty());
}

std::expected<ImportedProfiles, ArchiveFailure> restoreBackup(StoreContext& context, ProfileManager& profiles,
                                                              const QString& path)
{
    const bool isFresh = isUntouched(profiles, context.region);
    const std::optional<QUuid> standIn =
        isFresh ? std::optional((*profiles.profiles().front())->id) : std::nullopt;
    auto restored = importDataFile({context, profiles}, context.console, path, standIn);
    if (!restored || restored->profiles.empty() || !standIn)
        return restored;
    profiles.resolveActiveProfile((*restored->profiles.front())->id);
    if (const auto removed = profiles.removeProfile(*standIn); !removed)
        restored->failures.push_back({removed.error().text, {}});
    return restored;
}

} // namespace ledra
