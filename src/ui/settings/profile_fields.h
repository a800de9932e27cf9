#pragma once

#include "ui/settings/profile_access.h"

namespace ledra {

// Fields of a profile that stand in its settings and in the questions of the first start alike, with what is
// told under them when a number is wrong.

void addSenderFields(FieldForm& form, ProfileAccess& editing); ///< name, address and how to reach it
void addBankFields(FieldForm& form, ProfileAccess& editing);
void addTaxNumberFields(FieldForm& form, ProfileAccess& editing); ///< judged by the country of taxation
void addTaxResidencyField(FieldForm& form, ProfileAccess& editing);
void addCurrencyField(FieldForm& form, ProfileAccess& editing);
void addVatFields(FieldForm& form, ProfileAccess& editing); ///< the rate, or why there is none

} // namespace ledra
