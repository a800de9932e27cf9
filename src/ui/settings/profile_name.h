#pragma once

#include "ui/settings/profile_editing.h"

namespace ledra {

/// The name of a profile, with what is wrong with it under its field. It is written when the field is left;
/// one that cannot be goes back to the name that holds.
void addProfileName(FieldForm& form, ProfileEditing& editing);

} // namespace ledra
