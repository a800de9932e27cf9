#pragma once

#include "model/profile.h"
#include "ui/look/field_form.h"

namespace ledra {

/// A profile that forms show and change, wherever it is kept and however it is written.
class ProfileAccess
{
public:
    virtual ~ProfileAccess() = default;

    using Change = std::function<void(Profile&)>;
    virtual const Profile& profile() const = 0;
    virtual void change(const Change& change) = 0;

    /// A field of the profile, for forms.
    template <class T>
    Access<T> field(T Profile::* member)
    {
        return {[this, member] { return profile().*member; },
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
};

} // namespace ledra
