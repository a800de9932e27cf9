#pragma once

#include "model/profile.h"
#include "store/content_mark.h"
#include "store/data_folder.h"
#include "store/store_context.h"
#include "store/store_failure.h"

#include <QHash>
#include <QObject>
#include <QUuid>

#include <expected>
#include <memory>
#include <optional>
#include <vector>

namespace ledra {

class ProfileDirectoryWatcher;

/// A profile as others see it: they look on, the store edits.
using ProfilePtr = std::shared_ptr<const ProfileRecord>;

/// The profiles, the active one among them, and the data folder in which they lie.
///
/// What fails is told on the console and leaves things as they were.
class ProfileManager : public QObject
{
    Q_OBJECT

public:
    /// Finds the data folder, loads the profiles, creates one named "Default" when there is none, resolves
    /// the active one and begins to watch the folder.
    explicit ProfileManager(StoreContext& context);
    ~ProfileManager() override;

    /// In the order of the number prefixes of their folders.
    const std::vector<ProfilePtr>& profiles() const { return profiles_; }
    unsigned profilesRevision() const { return profilesRevision_; }

    /// Never nothing, so that the application runs whatever has become of the data folder: while no profile
    /// can be read or made there, it is one without a folder, of which nothing can be saved.
    const ProfilePtr& activeProfile() const { return activeProfile_; }
    std::optional<QString> customDataPath() const { return dataFolder_.customPath(); }

    // ---- the data folder

    /// Made if it is missing.
    QString dataFolder() const { return dataFolder_.path(); }

    /// The same without making it, for looking into it and for naming it.
    QString dataPlace() const { return dataFolder_.place(); }

    /// Moves the profiles there and remembers the folder. `previous` is the custom folder so far, if there
    /// was one.
    Migration setCustomDataFolder(const QString& folder, const std::optional<QString>& previous);

    /// Moves the profiles back into the folder of the application.
    Migration resetDataFolderToDefault();
    void clearCustomDataFolderBookmark() { dataFolder_.clearBookmark(); }

    // ---- profiles

    /// Reads the profiles of the data folder anew.
    std::vector<ProfilePtr> loadProfiles();

    /// Reads them and resolves the active profile again; observers hear of it if anything is different. Where
    /// nothing can be found any more, as on a stick that was pulled, what is known stays.
    void reload();

    std::expected<ProfilePtr, StoreFailure> createProfile(const QString& name);

    /// Takes in a copy of a profile's folder from elsewhere under a name that is free; it appears in one
    /// step. The "profile.json" in it must have an id of its own.
    std::expected<ProfilePtr, StoreFailure> adoptFolder(const QString& folder, const QString& name);

    /// A display name that no profile has: the one asked for, or that with " Copy", " Copy 2" and so on.
    ///
    /// @param apart a profile that does not count
    QString uniqueName(const QString& name, const std::optional<QUuid>& apart = {}) const;

    /// One more than the largest number prefix of the folders; 1 without any.
    std::int64_t nextFolderNumber() const;

    /// Nothing when the profile has no folder.
    std::optional<QString> profileFolder(const Profile& profile) const;

    /// The same for a folder that is away as well: where it was and will be again.
    std::optional<QString> profilePlace(const Profile& profile) const;

    std::optional<QString> subfolder(const Profile& profile, const QString& name, bool create) const;

    /// Writes "profile.json", after renaming the folder if `folderName` is another name.
    std::expected<void, StoreFailure> saveProfile(const Profile& profile, const QString& folderName);

    /// The folder name for another display name: the number prefix stays.
    static QString folderNameFor(const Profile& profile, const QString& displayName);

    /// Moves the folder with everything in it to the trash. The last profile stays.
    std::expected<void, StoreFailure> removeProfile(const QUuid& id);

    /// Picks the active profile (the preferred one, else the one that is active, else the one of the last
    /// run, else the first) and remembers it.
    void resolveActiveProfile(const std::optional<QUuid>& preferred = {});

    /// Makes a profile the active one for this run only.
    void useForThisRun(const QUuid& id);

    ProfilePtr find(const QUuid& id) const;

Q_SIGNALS:
    void profilesChanged();
    void activeProfileChanged();
    void dataFolderChanged();

private:
    struct Known
    {
        ContentMark mark;
        std::shared_ptr<ProfileRecord> record;
    };

    void startWatching();
    void takeUp();
    void ensureProfile();
    std::shared_ptr<ProfileRecord> load(const QString& folderName, QHash<QString, Known>& before);
    std::shared_ptr<ProfileRecord> takeRecord(const QUuid& id, QHash<QString, Known>& before) const;
    std::expected<void, StoreFailure> writeProfile(const Profile& profile, const QString& folderName);
    std::expected<void, StoreFailure> renameFolder(const QString& from, const QString& to);
    std::optional<QString> folderNameOf(const Profile& profile) const;
    void setActive(const ProfilePtr& profile);
    void remember(const ProfilePtr& profile);
    void copyDarkMode(const Profile& profile);
    void afterMoving();
    void listChanged();
    StoreFailure failed(const QString& line) const;

    StoreContext& context_;
    DataFolder dataFolder_;
    std::vector<ProfilePtr> profiles_;
    unsigned profilesRevision_ = 0;
    ProfilePtr activeProfile_;
    QHash<QString, Known> known_; ///< by folder name
    std::unique_ptr<ProfileDirectoryWatcher> directoryWatcher_;
    bool isResolvingActiveProfile_ = false;
    bool isPerformingProfileMutation_ = false;
    bool isForThisRun_ = false;
};

/// Why a name cannot be a profile's, in one line; nothing when it can.
std::optional<QString> profileNameProblem(const QString& name);

} // namespace ledra
