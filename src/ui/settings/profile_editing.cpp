#include "ui/settings/profile_editing.h"

namespace ledra {

namespace {

constexpr std::chrono::milliseconds quietTime{300};

} // namespace

ProfileEditing::ProfileEditing(ProfileManager& profiles)
    : profiles_(profiles), saver_([this] { save(); }, quietTime)
{
    connect(&profiles, &ProfileManager::profilesChanged, this, &ProfileEditing::takeStored);
}

void ProfileEditing::setProfile(const QUuid& id)
{
    if (id == shown_.id)
        return;
    flush();
    shown_ = Profile();
    shown_.id = id;
    takeStored();
}

void ProfileEditing::takeStored()
{
    const ProfilePtr stored = profiles_.find(shown_.id);
    if (!stored)
        return; // another one will be chosen
    shown_ = **stored;
    for (const Change& change : pending_)
        change(shown_);
    Q_EMIT changed();
}

void ProfileEditing::change(const Change& change)
{
    Profile after = shown_;
    change(after);
    if (after == shown_)
        return;
    shown_ = after;
    pending_.push_back(change);
    saver_.schedule();
    Q_EMIT changed();
}

void ProfileEditing::save()
{
    const ProfilePtr stored = profiles_.find(shown_.id);
    const std::vector<Change> changes = std::exchange(pending_, {});
    if (!stored)
        return;
    Profile profile = **stored;
    for (const Change& change : changes)
        change(profile);
    const auto saved = profiles_.saveProfile(profile, profile.profileName.value_or(QString()));
    if (saved)
        return;
    takeStored();
    Q_EMIT failed(saved.error().text);
}

std::expected<void, QString> ProfileEditing::rename(const QString& name)
{
    flush();
    if (name == shown_.displayName())
        return {};
    if (const std::optional<QString> problem = profileNameProblem(name))
        return std::unexpected(*problem);
    const auto saved = profiles_.saveProfile(shown_, ProfileManager::folderNameFor(shown_, name));
    return saved ? std::expected<void, QString>() : std::unexpected(saved.error().text);
}

bool ProfileEditing::isNameOfAnother(const QString& name) const
{
    return std::ranges::any_of(profiles_.profiles(), [&](const ProfilePtr& profile) {
        return (*profile)->id != shown_.id &&
               (*profile)->displayName().compare(name.trimmed(), Qt::CaseInsensitive) == 0;
    });
}

} // namespace ledra
