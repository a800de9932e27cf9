#pragma once

#include "store/profile_manager.h"
#include "store/rate_limited_saver.h"
#include "ui/settings/profile_access.h"

namespace ledra {

/// The profile in the settings, and how it is changed. Changes are seen at once and written a moment later,
/// onto what the profile is by then.
class ProfileEditing : public QObject, public ProfileAccess
{
    Q_OBJECT

public:
    explicit ProfileEditing(ProfileManager& profiles);

    void setProfile(const QUuid& id);
    const Profile& profile() const override { return shown_; }

    void change(const Change& change) override;

    /// Gives the profile another display name. The error is one line.
    std::expected<void, QString> rename(const QString& name);

    /// Whether another profile is called that, which folders with their numbers allow.
    bool isNameOfAnother(const QString& name) const;

    /// Writes what is pending.
    void flush() { saver_.flush(); }

Q_SIGNALS:
    void changed();
    void failed(const QString& line);

private:
    void takeStored();
    void save();

    ProfileManager& profiles_;
    Profile shown_;
    std::vector<Change> pending_;
    RateLimitedSaver saver_;
};

} // namespace ledra
