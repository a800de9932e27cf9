#include "platform/folder_listing.h"
#include "store/profile_directory_watcher.h"
#include "store/profile_json.h"
#include "store/profile_manager.h"

#include <QDir>
#include <QFileInfo>

#include <limits>

namespace ledra {

namespace {

const QString profileFile = QStringLiteral("/profile.json");

/// The number before the first "_" of a folder's name.
std::optional<std::int64_t> numberPrefix(const QString& folderName)
{
    bool isNumber = false;
    const qlonglong number = folderName.left(folderName.indexOf(u'_')).toLongLong(&isNumber);
    return folderName.contains(u'_') && isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

/// Folders with a number come in its order, before all others.
std::pair<std::int64_t, QString> orderKey(const QString& folderName)
{
    return {numberPrefix(folderName).value_or(std::numeric_limits<std::int64_t>::max()), folderName};
}

} // namespace

std::vector<ProfilePtr> ProfileManager::loadProfiles()
{
    const QString data = dataFolder_.place();
    std::expected<std::vector<FolderEntry>, FileError> entries = listFolder(data);
    if (!entries) {
        context_.console.failure(QStringLiteral("Error loading profiles: ") + entries.error().text());
        return {};
    }
    std::erase_if(*entries, [](const FolderEntry& entry) { return entry.name.startsWith(u'.'); });
    std::ranges::sort(*entries, {}, [](const FolderEntry& entry) { return orderKey(entry.name); });

    QHash<QString, Known> before;
    before.swap(known_);
    std::vector<ProfilePtr> loaded;
    for (const FolderEntry& entry : *entries) {
        if (!isProfileFolder(data + u'/' + entry.name))
            continue;
        if (const auto record = load(entry.name, before))
            loaded.push_back(record);
    }
    // Whoever replaces a file by removing the old one first leaves its folder without it for a moment.
    for (const FolderEntry& entry : *entries) {
        const Known known = before.take(entry.name);
        const auto isSame = [&](const ProfilePtr& profile) { return (*profile)->id == (**known.record).id; };
        if (!known.record || std::ranges::any_of(loaded, isSame))
            continue;
        known_.insert(entry.name, known);
        loaded.push_back(known.record);
    }
    std::ranges::sort(loaded, {},
                      [](const ProfilePtr& profile) { return orderKey(*(*profile)->profileName); });
    return loaded;
}

/// Takes over what the data folder holds.
void ProfileManager::takeUp()
{
    const QHash<QString, Known> before = known_;
    std::vector<ProfilePtr> loaded = loadProfiles();
    if (loaded.empty())
        known_ = before;
    else
        profiles_ = std::move(loaded);
}

/// Reads one profile. A record that is known by its folder or its id stays the same object, and its content
/// as well when the file cannot be read any more.
std::shared_ptr<ProfileRecord> ProfileManager::load(const QString& folderName, QHash<QString, Known>& before)
{
    const QString path = dataFolder_.place() + u'/' + folderName + profileFile;
    const auto read = [&]() -> std::expected<Profile, QString> {
        const std::expected<QByteArray, FileError> content = readFile(path, largestRecordFile);
        if (!content)
            return std::unexpected(content.error().reason);
        known_[folderName].mark = ContentMark::of(*content);
        if (before.value(folderName).record && before[folderName].mark == known_[folderName].mark)
            return **before[folderName].record;
        Decoded<Profile> profile = decodeProfile(*content, context_.newRecordValues());
        if (!profile)
            return std::unexpected(profile.error().text());
        return std::move(*profile);
    };
    std::expected<Profile, QString> profile = read();
    if (!profile) { // another process that is writing it holds the lock until the file is whole
        const InterprocessLock::Guard guard = context_.writer.lock();
        profile = read();
    }
    Known known = before.take(folderName);
    if (!profile) {
        context_.console.failure(
            QStringLiteral("Error loading profile from %1: %2").arg(folderName, profile.error()));
    } else {
        profile->profileName = folderName;
        if (!known.record || (**known.record).id != profile->id)
            known.record = takeRecord(profile->id, before);
        if (known.record)
            known.record->edit([&](Profile& value) { value = *profile; });
        else
            known.record = std::make_shared<ProfileRecord>(*profile);
    }
    known_[folderName].record = known.record;
    return known.record;
}

/// The record of that id whose folder has gone, which now has another name.
std::shared_ptr<ProfileRecord> ProfileManager::takeRecord(const QUuid& id,
                                                          QHash<QString, Known>& before) const
{
    for (auto known = before.begin(); known != before.end(); ++known) {
        const bool hasGone = !isProfileFolder(dataFolder_.place() + u'/' + known.key());
        if (hasGone && known->record && (**known->record).id == id)
            return std::exchange(known->record, nullptr);
    }
    return nullptr;
}

void ProfileManager::reload()
{
    const auto contents = [this] {
        std::vector<Profile> values;
        values.reserve(profiles_.size());
        for (const ProfilePtr& profile : profiles_)
            values.push_back(**profile);
        return values;
    };
    const std::vector<Profile> before = contents();
    const ProfilePtr active = activeProfile_;
    const std::optional<QString> folder = (*active)->profileName;
    if (directoryWatcher_)
        directoryWatcher_->watch(dataFolder_.place()); // first, so that nothing comes unseen while it is read
    takeUp();
    if (contents() != before)
        listChanged();
    resolveActiveProfile();
    if (activeProfile_ == active && (*active)->profileName != folder)
        Q_EMIT activeProfileChanged(); // its files have other places
}

void ProfileManager::listChanged()
{
    ++profilesRevision_;
    Q_EMIT profilesChanged();
}

ProfilePtr ProfileManager::find(const QUuid& id) const
{
    const auto found = std::ranges::find_if(profiles_, [&](const ProfilePtr& p) { return (*p)->id == id; });
    return found == profiles_.end() ? nullptr : *found;
}

// ---- folders

std::int64_t ProfileManager::nextFolderNumber() const
{
    const auto entries = listFolder(dataFolder());
    if (!entries) {
        context_.console.failure(QStringLiteral("Error reading profile folders: ") + entries.error().text());
        return 1;
    }
    std::optional<std::int64_t> largest;
    for (const FolderEntry& entry : *entries) {
        if (const auto number = entry.name.startsWith(u'.') ? std::nullopt : numberPrefix(entry.name))
            largest = std::max(largest.value_or(*number), *number);
    }
    return largest && *largest < std::numeric_limits<std::int64_t>::max() ? *largest + 1 : 1;
}

std::optional<QString> ProfileManager::folderNameOf(const Profile& profile) const
{
    const QString data = dataFolder_.place();
    if (profile.profileName && QFileInfo::exists(data + u'/' + *profile.profileName))
        return profile.profileName;
    QStringList names = QDir(data).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : names) {
        if (name.startsWith(u'.') || !isProfileFolder(data + u'/' + name))
            continue;
        const auto content = readFile(data + u'/' + name + profileFile, largestRecordFile);
        const Decoded<Profile> found =
            content
                ? decodeProfile(*content, context_.newRecordValues())
                : std::unexpected(DecodingError{.kind = {}, .path = {}, .detail = content.error().reason});
        if (!found)
            context_.console.failure(
                QStringLiteral("Error loading profile from %1: %2").arg(name, found.error().text()));
        else if (found->id == profile.id)
            return name;
    }
    return std::nullopt;
}

std::optional<QString> ProfileManager::profileFolder(const Profile& profile) const
{
    const std::optional<QString> name = folderNameOf(profile);
    return name ? std::optional(dataFolder_.place() + u'/' + *name) : std::nullopt;
}

std::optional<QString> ProfileManager::profilePlace(const Profile& profile) const
{
    const std::optional<QString> folder = profileFolder(profile);
    return folder || !profile.profileName ? folder : dataPlace() + u'/' + *profile.profileName;
}

std::optional<QString> ProfileManager::subfolder(const Profile& profile, const QString& name,
                                                 bool create) const
{
    const std::optional<QString> folder = profileFolder(profile);
    if (!folder)
        return std::nullopt;
    if (create)
        QDir().mkpath(*folder + u'/' + name); // shows when it is used
    return *folder + u'/' + name;
}

QString ProfileManager::folderNameFor(const Profile& profile, const QString& displayName)
{
    const QString current = profile.profileName.value_or(QString());
    return numberPrefix(current) ? current.left(current.indexOf(u'_') + 1) + displayName : displayName;
}

} // namespace ledra
