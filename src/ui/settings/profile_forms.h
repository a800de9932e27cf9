#pragma once

#include "ui/settings/profile_editing.h"

#include <span>

namespace ledra {

/// A page of a profile's settings.
struct ProfileFormPage
{
    const char* title;
    void (*fill)(FieldForm& form, ProfileEditing& editing);
};

/// The five of them, in their order. All fields of the record stand on one of them.
std::span<const ProfileFormPage> profileFormPages();

/// The object name of the field that holds the display name.
inline constexpr const char* profileNameField = "profile-name";

} // namespace ledra
