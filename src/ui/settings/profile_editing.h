#pragma once

#include "store/profile_manager.h"
#include "store/rate_limited_saver.h"
#include "ui/look/field_form.h"

namespace ledra {

/// The profile in the settings, and how it is changed. Changes are seen at once and written a moment later,
/// onto what the profile is by then.
class ProfileEditing : public QObject
{
    Q_OBJECT

public:
    explicit ProfileEditing(ProfileManager& profiles);

    void setProfile(const QUuid& id);
    const Profile& profile() const { return shown_; }

    using Change = std::function<void(Profile&)>;
    void change(const Change& change);

    /// Gives the profile another display name. The error is one line.
    std::expected<void, QString> rename(const QString& name);

    /// Writes what is pending.
    void flush() { saver_.flush(); }

    /// A field of the profile, for forms.
    template <class T>
    Access<T> field(T Profile::* member)
    {
        return {[this, member] { return shown_.*member; },
                [this, member](const T& value) {
                    change([member, value](Profile& profile) { profile.*member = value; });
                }};
    }

    template <TextEnum E>
    Access<QString> choice(E Profile::* member)
    {
        const Access<E> access = field(member);
        return {[access] { return rawText(access.read()); },
                [access](const QString& text) {
                    access.write(enumFromRawValue<E>(text.toStdString()).value_or(E()));
                }};
    }

    /// Of a country or a currency.
    template <class T>
    Access<QString> code(T Profile::* member)
    {
        const Access<T> access = field(member);
        return {[access] { return access.read().code; },
                [access](const QString& code) { access.write(T{code}); }};
    }

    Access<int> count(std::int64_t Profile::* member);

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
