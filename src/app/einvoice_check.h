#pragma once

#include "model/invoice.h"
#include "model/text_enum.h"
#include "render/invoice_document.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace ledra {

enum class FindingLevel { error, warning, information };

template <>
inline constexpr std::array enumTexts<FindingLevel> = {
    EnumText{FindingLevel::error, "error", "Error"},
    EnumText{FindingLevel::warning, "warning", "Warning"},
    EnumText{FindingLevel::information, "information", "Information"},
};

/// Something that a check of an e-invoice found.
struct Finding
{
    FindingLevel level = FindingLevel::error;
    QString
        code; ///< a rule of the standard ("BR-CO-14"), or what was looked at ("missing-field", "attachment")
    QString text; ///< a sentence for users

    friend bool operator==(const Finding&, const Finding&) = default;
};

/// Whether any of the findings is an error.
bool hasErrors(const std::vector<Finding>& findings);

/// What stands between a record and a valid e-invoice: fields that are missing, rules that it would break,
/// and what readers would see otherwise.
std::vector<Finding> checkInvoice(const Invoice& invoice, const DocumentSetting& setting);

/// Looks at an XML file, or at a PDF with what it carries: attachment, metadata, the hidden record.
std::vector<Finding> checkReceived(const QByteArray& content);

} // namespace ledra
