#pragma once

#include <QByteArray>
#include <QString>

namespace ledra {

/// The schema of ExtractedInvoice as JSON Schema in the strict form that servers turn into a grammar: each
/// key is required and no other is allowed; what may be absent may be null.
QByteArray extractionSchema();

/// What a model is told with every text.
QString extractionInstructions();

/// The body of a request for the streamed answer of a model ("chat completions" of OpenAI's interface, which
/// model servers have in common).
QByteArray extractionRequest(const QString& model, const QString& text);

} // namespace ledra
