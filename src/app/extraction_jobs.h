#pragma once

#include "app/ledra_app.h"
#include "app/text_extraction.h"
#include "textparser/apply_extraction.h"

namespace ledra {

// What becomes of the fields that were found in a text. Each is one step that can be taken back.

/// A draft with them.
JobResult<InvoicePtr> createFromText(LedraApp& app, const ExtractedInvoice& extracted);

/// Fills what a draft leaves empty.
JobResult<void> fillFromText(LedraApp& app, const QUuid& id, const ExtractedInvoice& extracted);

/// What of them could not be used, in that draft or, without one, in a new one.
std::vector<UnusedText> unusedIn(LedraApp& app, const InvoicePtr& draft, const ExtractedInvoice& extracted);

/// The content of a text file, which may be in UTF-8 or in what old mail programs write; the error is one
/// line. Longer files than can be extracted are refused.
std::expected<QString, QString> textOfFile(const QString& path);

} // namespace ledra
