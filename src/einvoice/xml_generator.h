#pragma once

#include "einvoice/xml_document.h"
#include "model/invoice.h"
#include "model/invoice_lookup.h"
#include "model/profile.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace ledra {

/// Writes a record as Cross Industry Invoice (UN/CEFACT CII D16B) in the profile XRechnung 3.0 of EN 16931: a
/// template is filled by path, and what is empty vanishes from it.
class XMLGenerator
{
public:
    /// The document in UTF-8; nothing when the template cannot be read.
    /// @param profile for the language and the number format of a record that has none
    /// @param invoices finds the invoice that a cancellation cancels
    static std::optional<QByteArray> generate(const Invoice& invoice, const Profile& profile,
                                              const InvoiceLookup& invoices);

    /// The same from a template of the caller's.
    static std::optional<QByteArray> generate(const Invoice& invoice, const Profile& profile,
                                              const InvoiceLookup& invoices, std::string_view templateText);

    /// The labels of the fields that are missing; none: ready to export.
    static QStringList validate(const Invoice& invoice);
};

} // namespace ledra
