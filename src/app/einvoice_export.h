#pragma once

#include "model/invoice.h"
#include "render/invoice_document.h"

#include <QByteArray>
#include <QStringList>

#include <expected>

namespace ledra {

/// The XML of an e-invoice and what users are to know before they send it.
struct EInvoice
{
    QByteArray xml;
    QStringList notices; ///< rules that it breaks, and what is lost when it is read back; a sentence each
};

/// Makes the e-invoice of a record; the error is for users.
[[nodiscard]] std::expected<EInvoice, QString> makeEInvoice(const Invoice& invoice,
                                                            const DocumentSetting& setting);

/// Makes the hybrid of a finished PDF and an e-invoice; the error is for users.
[[nodiscard]] std::expected<QByteArray, QString> makeHybrid(const QByteArray& pdf, const QByteArray& xml);

/// Why a hybrid is no PDF/A whose hidden record has so many bytes; nothing when it can be one.
std::optional<QString> pdfAProblem(qsizetype recordLength);

} // namespace ledra
