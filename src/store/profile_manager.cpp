#include "store/profile_manager.h"

#include "model/clock.h"
#include "platform/file_move.h"
#include "store/profile_directory_watcher.h"
#include "store/profile_json.h"

#include <QFileInfo>
#include <QScopedValueRollback>

namespace ledra {

namespace {

const QString activeProfileKey = QStringLiteral("activeProfileId");
const QString darkModeKey = QStringLiteral("invoiceDarkMode");
const QString profileFile = QStringLiteral("/profile.json");
constexpr qsizetype longestName = 200; ///< UTF-8 bytes; file systems take 255 with the number prefix

} // namespace

std::optional<QString> profileNameProblem(const QString& name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("a profile needs a name");
    if (name.contains(u'/') || name.contains(QChar::Null) || name.contains(u'\n'))
        return QStringLiteral("\"%1\" cannot be a profile's name: it names a folder").arg(name.simplified());
    if (name.toUtf8().size() > longestName)
        return QStringLiteral("the name is too long for a folder");
    return std::nullopt;
}

ProfileManager::ProfileManager(StoreContext& context) : context_(context), dataFolder_(context)
{
    {
        // Of several that start on an empty folder one makes the profile; and nobody starts while the data
        // move.
        const InterprocessLock::Guard guard = context_.writer.lock();
        dataFolder_.restore();
        (void)dataFolder(); // makes it
        startWatching();
        takeUp();
        ensureProfile();
    }
    resolveActiveProfile();
}

ProfileManager::~ProfileManager() = default;

/// Before anything is read: what comes in between is then reported.
void ProfileManager::startWatching()
{
    if (!context_.watchesFolders)
        return;
    directoryWatcher_ = std::make_unique<ProfileDirectoryWatcher>();
    connect(directoryWatcher_.get(), &ProfileDirectoryWatcher::changed, this, [this] {
        if (!isResolvingActiveProfile_ && !isPerformingProfileMutation_)
            reload();
    });
    directoryWatcher_->watch(dataFolder_.place());
}

StoreFailure ProfileManager::failed(const QString& line) const
{
    context_.console.failure(line);
    return {line, true};
}

// ---- the data folder

Migration ProfileManager::setCustomDataFolder(const QString& folder, const std::optional<QString>& previous)
{
    Migration migration = dataFolder_.setCustomPath(folder, previous);
    afterMoving();
    return migration;
}

Migration ProfileManager::resetDataFolderToDefault()
{
    Migration migration = dataFolder_.resetToDefault();
    afterMoving();
    return migration;
}

void ProfileManager::afterMoving()
{
    const QString place = dataFolder();
    if (directoryWatcher_)
        directoryWatcher_->watch(place);
    known_.removeIf([&](QHash<QString, Known>::iterator known) {
        return !isProfileFolder(place + u'/' + known.key()); // a folder of the same name is another's
    });
    profiles_ = loadProfiles(); // those of the earlier folder are none of this one
    ensureProfile();
    listChanged();
    resolveActiveProfile();
    Q_EMIT dataFolderChanged();
}

void ProfileManager::ensureProfile()
{
    if (profiles_.empty())
        (void)createProfile(QStringLiteral("Default")); // told on the console
    if (profiles_.empty())
        profiles_ = {std::make_shared<ProfileRecord>(newProfile(context_.ids.newId(), context_.region))};
}

// ---- saving

std::expected<ProfilePtr, StoreFailure> ProfileManager::createProfile(const QString& name)
{
    if (const std::optional<QString> problem = profileNameProblem(name))
        return std::unexpected(StoreFailure{*problem});
    const QScopedValueRollback mutation(isPerformingProfileMutation_, true);
    const InterprocessLock::Guard guard = context_.writer.lock();
    const QString folderName = QString::number(nextFolderNumber()) + u'_' + name;
    Profile profile = newProfile(context_.ids.newId(), context_.region);
    profile.profileName = folderName;
    if (const auto written = writeProfile(profile, folderName); !written)
        return std::unexpected(written.error());
    takeUp();
    listChanged();
    if (directoryWatcher_)
        directoryWatcher_->watch(dataFolder_.place());
    const ProfilePtr created = find(profile.id);
    return created ? std::expected<ProfilePtr, StoreFailure>(created)
                   : std::unexpected(StoreFailure{folderName + QStringLiteral(": cannot be read again")});
}

std::expected<void, StoreFailure> ProfileManager::writeProfile(const Profile& profile,
                                                               const QString& folderName)
{
    const auto known = known_.constFind(folderName);
    const auto written = context_.writer.write(
        {.path = dataFolder() + u'/' + folderName + profileFile,
         .content = fileText(profile),
         .known = known == known_.constEnd() ? std::nullopt : std::optional(known->mark)});
    if (!written)
        return std::unexpected(failed(QStringLiteral("Error saving profile: ") + written.error().text()));
    known_[folderName].mark = *written;
    return {};
}

std::expected<void, StoreFailure> ProfileManager::saveProfile(const Profile& profile,
                                                              const QString& folderName)
{
    const QScopedValueRollback mutation(isPerformingProfileMutation_, true);
    const InterprocessLock::Guard guard = context_.writer.lock();
    const std::optional<QString> current = folderNameOf(profile);
    if (current != folderName) {
        if (!current)
            return std::unexpected(
                failed(profile.profileName == folderName
                           ? QStringLiteral("Error saving profile: directory not found")
                           : QStringLiteral("Error renaming profile folder: source not found")));
        if (auto renamed = renameFolder(*current, folderName); !renamed)
            return renamed;
    }
    Profile saved = profile;
    saved.profileName = folderName;
    if (auto written = writeProfile(saved, folderName); !written)
        return written;
    if (const auto& record = known_[folderName].record)
        record->edit([&](Profile& value) { value = saved; });
    takeUp();
    listChanged();
    if (activeProfile_ && (*activeProfile_)->id == saved.id) {
        copyDarkMode(saved);
        if (current != folderName)
            Q_EMIT activeProfileChanged(); // its files have other places
    }
    if (directoryWatcher_)
        directoryWatcher_->watch(dataFolder_.place());
    return {};
}

std::expected<void, StoreFailure> ProfileManager::renameFolder(const QString& from, const QString& to)
{
    const QString data = dataFolder() + u'/';
    if (QFileInfo::exists(data + to))
        return std::unexpected(
            failed(QStringLiteral("Error renaming profile folder: destination already exists")));
    if (const auto moved = moveFile(data + from, data + to); !moved)
        return std::unexpected(
            failed(QStringLiteral("Error renaming profile folder: ") + moved.error().text()));
    known_.insert(to, known_.take(from));
    context_.writer.conflicts().relocate(data + from, data + to);
    return {};
}

std::expected<void, StoreFailure> ProfileManager::removeProfile(const QUuid& id)
{
    const ProfilePtr profile = find(id);
    const std::optional<QString> folder = profile ? profileFolder(**profile) : std::nullopt;
    if (!folder)
        return std::unexpected(StoreFailure{QStringLiteral("the profile has no folder")});
    if (profiles_.size() == 1)
        return std::unexpected(StoreFailure{QStringLiteral("the last profile cannot be deleted")});
    const QScopedValueRollback mutation(isPerformingProfileMutation_, true);
    if (const auto trashed = context_.trash.put(*folder); !trashed)
        return std::unexpected(StoreFailure{trashed.error().text()});
    reload();
    return {};
}

// ---- the active profile

void ProfileManager::resolveActiveProfile(const std::optional<QUuid>& preferred)
{
    const QScopedValueRollback resolving(isResolvingActiveProfile_, true);
    ProfilePtr chosen = preferred ? find(*preferred) : nullptr;
    if (chosen)
        isForThisRun_ = false;
    if (!chosen && activeProfile_)
        chosen = find((*activeProfile_)->id);
    if (!chosen) {
        const QString remembered = context_.defaults.value(activeProfileKey).toString();
        const auto found = std::ranges::find_if(
            profiles_, [&](const ProfilePtr& profile) { return idText((*profile)->id) == remembered; });
        chosen = found == profiles_.end() ? nullptr : *found;
    }
    if (!chosen && !profiles_.empty())
        chosen = profiles_.front();
    // What stays has been remembered already; by now another process may have been told to remember another.
    const bool stays = !preferred && activeProfile_ && chosen && (*activeProfile_)->id == (*chosen)->id;
    const bool hasFolder = !chosen || (*chosen)->profileName;
    if (!isForThisRun_ && hasFolder)
        stays ? copyDarkMode(**chosen) : remember(chosen);
    setActive(chosen);
}

void ProfileManager::useForThisRun(const QUuid& id)
{
    if (const ProfilePtr profile = find(id)) {
        isForThisRun_ = true;
        setActive(profile);
    }
}

void ProfileManager::setActive(const ProfilePtr& profile)
{
    if (profile == activeProfile_)
        return;
    activeProfile_ = profile;
    Q_EMIT activeProfileChanged();
}

void ProfileManager::remember(const ProfilePtr& profile)
{
    const QString stored = context_.defaults.value(activeProfileKey).toString();
    const QString wanted = profile ? idText((*profile)->id) : QString();
    if (profile)
        copyDarkMode(**profile);
    if (stored == wanted)
        return;
    const auto written = profile ? context_.defaults.setValue(activeProfileKey, wanted)
                                 : context_.defaults.remove(activeProfileKey);
    if (!written)
        context_.console.failure(written.error());
}

/// Screens read the setting; the profile only carries it from one computer to the next.
void ProfileManager::copyDarkMode(const Profile& profile)
{
    if (context_.defaults.boolean(darkModeKey, false) == profile.invoiceDarkMode)
        return;
    if (const auto written = context_.defaults.setValue(darkModeKey, profile.invoiceDarkMode); !written)
        context_.console.failure(written.error());
}

} // namespace ledra
