#pragma once

#include "model/new_invoices.h"
#include "textparser/extracted_invoice.h"

#include <vector>

namespace ledra {

/// Something of a text that could not be used.
struct UnusedText
{
    const char* what; ///< with a place for the value: "country “%1”"
    QString value;
    const char* why;

    /// "country “XX”: there is no such code"
    QString line() const;
};

/// What the draft's new values come from: its profile. Country and currency count as empty while they are the
/// profile's, the days of service while they are those of the record's own beginning.
struct ApplyDefaults
{
    const Profile& profile; ///< new lines take its VAT rate and its rates for units of time
    IdSource& ids;
};

/// Copies what was extracted into a draft, but only where the draft is still empty; items are added if it has
/// none, or a single empty one, whose place they take. Returns what could not be used.
std::vector<UnusedText> apply(const ExtractedInvoice& extracted, Invoice& invoice,
                              const ApplyDefaults& defaults);

} // namespace ledra
