#pragma once

#include "einvoice/xml_document.h"
#include "platform/pdf_file.h"

#include <QByteArray>
#include <QStringList>

#include <expected>

namespace ledra {

/// Why no e-invoice could be taken from a file.
enum class ReceivedFileError {
    unreadable,    ///< the file cannot be read, or is too large
    notAnEInvoice, ///< it holds no Cross Industry Invoice
};

/// The message for users.
QString errorText(ReceivedFileError error);

// What received files may be at most; see xml_parser.h for what is in them.
inline constexpr qint64 largestReceivedFile = qint64{128} * 1024 * 1024; ///< bytes

/// A received e-invoice before it is understood.
struct ReceivedFile
{
    XMLDocument document;         ///< a Cross Industry Invoice
    QStringList otherAttachments; ///< names of what a PDF carries beside it, and of what the XML embeds
};

/// Whether a file is a PDF, by its first bytes.
bool isPdf(const QByteArray& content);

/// The attachment of a PDF that is the e-invoice, by the names that the standards give it; nothing when there
/// is none.
std::optional<QString> einvoiceAttachment(const QStringList& names);

/// Takes the e-invoice out of a file: an XML file in any encoding, or a PDF that carries one.
[[nodiscard]] std::expected<ReceivedFile, ReceivedFileError> openReceivedFile(const QByteArray& content);

/// The same from a PDF that is open already.
[[nodiscard]] std::expected<ReceivedFile, ReceivedFileError> openReceivedFile(const PdfFile& pdf);

/// The content of one of the files that came along with an e-invoice; nothing when there is none of that name
/// (any more), when it is damaged, or when it unpacks to more than a received file may be.
std::optional<QByteArray> attachedFile(const QByteArray& content, const QString& name);

} // namespace ledra
