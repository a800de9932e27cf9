#pragma once

#include "model/clock.h"
#include "model/invoice.h"
#include "model/profile.h"
#include "model/styling.h"
#include "platform/console.h"
#include "store/invoice_json.h"

#include <QHash>
#include <QString>

#include <expected>
#include <optional>

namespace ledra {

/// Reads invoices, profiles and stylings from single files, with no data folder. An error is one line that
/// names the file and, where there is one, the key.
class BareFiles
{
public:
    BareFiles(const Clock& clock, IdSource& ids, QString region, Console& console);

    [[nodiscard]] std::expected<Invoice, QString> invoice(const QString& path);
    [[nodiscard]] std::expected<Profile, QString> profile(const QString& path);

    /// A styling with the logo and the style sheet that lie beside its file.
    [[nodiscard]] std::expected<Styling, QString> styling(const QString& path);

    /// The profile and the styling of somebody who has set nothing.
    Profile defaultProfile();
    Styling defaultStyling();

    /// The invoice with that id among the JSON files of a folder.
    std::optional<Invoice> findInvoice(const QString& folder, const QUuid& id);

private:
    NewRecordValues newRecordValues() { return {clock_.now(), ids_, region_}; }

    const Clock& clock_;
    IdSource& ids_;
    QString region_;
    Console& console_;
    JSONReader reader_;
    QHash<QString, std::optional<Invoice>> found_; ///< by folder and id
};

} // namespace ledra
