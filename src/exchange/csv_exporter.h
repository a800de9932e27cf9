#pragma once

#include "model/enumerations.h"
#include "model/invoice.h"
#include "model/profile.h"

#include <QLocale>
#include <QString>

#include <set>
#include <vector>

namespace ledra {

/// Writes invoices as one semicolon-separated text (RFC 4180 but for the separator) for spreadsheets and
/// bookkeeping.
struct CSVExporter
{
    /// The columns in the order in which they stand in the file.
    enum class Column { name, address, date, invoiceNumber, net, vat, gross, currency, status };

    /// For whom the file is written.
    struct Reader
    {
        QLocale locale;                        ///< numbers and dates
        Language language = Language::english; ///< titles and states
        /// Puts an apostrophe before texts that a spreadsheet would run as a formula, after which they are no
        /// longer the texts of the records.
        bool guardsFormulas = false;
    };

    /// The text of a file in UTF-8: a line of titles, then a line an invoice in the order given. Texts stand
    /// in double quotes, amounts do not.
    static QByteArray text(const std::vector<const Invoice*>& invoices, const std::set<Column>& columns,
                           const Profile& profile, const Reader& reader);
};

template <>
inline constexpr std::array enumTexts<CSVExporter::Column> = {
    EnumText{CSVExporter::Column::name, "name", "Name"},
    EnumText{CSVExporter::Column::address, "address", "Address"},
    EnumText{CSVExporter::Column::date, "date", "Date"},
    EnumText{CSVExporter::Column::invoiceNumber, "invoiceNumber", "Invoice Number"},
    EnumText{CSVExporter::Column::net, "net", "Net"},
    EnumText{CSVExporter::Column::vat, "vat", "VAT"},
    EnumText{CSVExporter::Column::gross, "gross", "Gross"},
    EnumText{CSVExporter::Column::currency, "currency", "Currency"},
    EnumText{CSVExporter::Column::status, "status", "Status"},
};

} // namespace ledra
