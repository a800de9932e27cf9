#pragma once

#include "app/ledra_app.h"

namespace ledra {

/// What somebody has said about his firm before the first invoice. Nothing of it is written until all of it
/// is, by keepFirstStart().
struct FirstStartAnswers
{
    Profile profile;
    Styling styling;

    friend bool operator==(const FirstStartAnswers&, const FirstStartAnswers&) = default;
};

/// Whether there is nobody yet who works with Ledra here: the terms are not agreed to, the questions of the
/// first start were never put, and the only profile holds nothing of anybody's own and no records.
bool isFirstStart(LedraApp& app);

/// Remembers that the questions were put ("FirstStart.wasOffered"), however they were answered.
JobResult<void> noteFirstStart(LedraApp& app);

/// Remembers that the terms of use are agreed to ("termsAccepted").
JobResult<void> acceptTerms(LedraApp& app);

/// What the questions begin with: what the active profile holds.
FirstStartAnswers storedAnswers(LedraApp& app);

/// Moves a profile to the country of its address: country of taxation, currency, VAT rate, language and
/// prefixes follow where they are still what the country before has them.
void followCountry(Profile& profile, const Country& before);

/// Writes what of the answers differs from what they began with onto what is stored by now.
JobResult<void> keepFirstStart(LedraApp& app, const FirstStartAnswers& before,
                               const FirstStartAnswers& after);

/// A draft with an example item, in the language of the profile; one step back takes it away.
JobResult<InvoicePtr> createExampleDraft(LedraApp& app);

/// An invoice as a profile would write it, to show what it looks like; it is in no store.
Invoice exampleInvoice(const Profile& profile, const Clock& clock, IdSource& ids);

} // namespace ledra
