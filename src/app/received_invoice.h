#pragma once

#include "einvoice/viewer_html_generator.h"
#include "einvoice/viewer_xml_parser.h"

#include <QString>

namespace ledra {

/// Opens a received e-invoice, an XML file or a PDF that carries one, by its path or from the standard input.
[[nodiscard]] std::expected<OpenedEInvoice, ReceivedFileError>
openReceivedInvoice(const QString& path, const ViewerXMLParser& parser);

/// A received invoice for the terminal: what a record's summary shows, but for what the document does not
/// state, then other totals and attachments.
QString receivedText(const OpenedEInvoice& opened, Timestamp now);

/// The same for programs.
QByteArray receivedJson(const OpenedEInvoice& opened, Timestamp now);

} // namespace ledra
