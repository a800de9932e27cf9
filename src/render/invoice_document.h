#pragma once

#include "model/invoice.h"
#include "model/invoice_lookup.h"
#include "model/profile.h"
#include "model/reminder_variable.h"
#include "model/styling.h"
#include "render/document_shell.h"
#include "render/item_table.h"
#include "render/paginated_document.h"
#include "render/style_sheet.h"

namespace ledra {

/// What an invoice, or a reminder of it, is shown with.
struct DocumentSetting
{
    Profile profile;
    Styling styling;
    ColorScheme colorScheme = ColorScheme::light;
    InvoiceLookup invoices = [](const QUuid&) { return std::nullopt; };
    int paymentDeadlineDays = usualPaymentDeadlineDays; ///< of reminders
};

/// The HTML of an invoice, a quote or a cancellation. Its blocks are the rows of the main table's body: a row
/// for each item, one row for all totals and a row for each line of the note.
class InvoiceDocument final : public PaginatedDocument
{
public:
    InvoiceDocument(Invoice invoice, DocumentSetting setting, const WebFontManager& fonts);
    InvoiceDocument(const InvoiceDocument&) = delete; // its parts refer to one another
    InvoiceDocument& operator=(const InvoiceDocument&) = delete;

    QString measuringHtml() const override;
    QStringList blockSelectors() const override;
    int expectedBlockCount() const override;
    PageFormat pageFormat() const override { return setting_.styling.pageFormat; }
    std::size_t cacheKey() const override;
    std::optional<QString> headerSelector() const override;
    double continuationOffset(double rem) const override;
    QString pageHtml(PagePosition position, const std::vector<int>& blocks, double remainingSpace,
                     double rem) const override;

    /// "Invoice 2026-042" in the document's language.
    const QString& title() const { return title_; }

private:
    int itemCount() const { return static_cast<int>(invoice_.items.size()); }
    LetterFrame frame() const;
    TemplateValues contentValues() const;
    QString metaRow(const char* key, const QString& value) const;
    QString numberOf(const std::optional<QUuid>& id) const;
    QString serviceDateRow() const;
    QString paymentPeriod() const;
    QString content(const std::vector<int>& blocks, int emptyRows) const;
    int emptyRowCount(PagePosition position, int itemRows, double remainingSpace, double rem) const;

    Invoice invoice_;
    DocumentSetting setting_;
    Language language_;
    QStringList noteLines_; ///< none for an empty note
    QString number_;
    QString title_;
    ItemTable table_;
    TemplateValues contentValues_;
    DocumentShell shell_;
};

} // namespace ledra
