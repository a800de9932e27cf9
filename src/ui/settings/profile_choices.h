#pragma once

#include "ui/look/field_form.h"

namespace ledra {

// What can be chosen in profiles, sorted by name.

std::vector<FieldChoice> countryChoices();
std::vector<FieldChoice> currencyChoices();

/// The symbols of profiles, by the names that files hold.
std::vector<FieldChoice> symbolChoices();

} // namespace ledra
