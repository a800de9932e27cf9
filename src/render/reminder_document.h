#pragma once

#include "model/reminder_variable.h"
#include "render/invoice_document.h"

namespace ledra {

/// The HTML of a reminder's letter. Its blocks are the lines of its text; sender and recipient are those of
/// the invoice.
class ReminderDocument final : public PaginatedDocument
{
public:
    ReminderDocument(Reminder reminder, Invoice invoice, DocumentSetting setting,
                     const WebFontManager& fonts);
    ReminderDocument(const ReminderDocument&) = delete; // its parts refer to one another
    ReminderDocument& operator=(const ReminderDocument&) = delete;

    QString measuringHtml() const override;
    QStringList blockSelectors() const override;
    int expectedBlockCount() const override { return static_cast<int>(lines_.size()); }
    PageFormat pageFormat() const override { return setting_.styling.pageFormat; }
    std::size_t cacheKey() const override;
    std::optional<QString> headerSelector() const override { return std::nullopt; }
    double continuationOffset(double rem) const override;
    QString pageHtml(PagePosition position, const std::vector<int>& blocks, double remainingSpace,
                     double rem) const override;

    /// "Payment Reminder 2026-042" in the document's language: the headline and the invoice's number.
    const QString& title() const { return title_; }

private:
    ReminderFacts facts() const;
    LetterFrame frame() const;
    QString paymentPeriod() const;
    TemplateValues contentValues() const;
    QString content(const std::vector<int>& blocks) const;

    Reminder reminder_;
    Invoice invoice_;
    DocumentSetting setting_;
    Language language_;
    QString number_; ///< of the invoice
    QString headline_;
    QString title_;
    QStringList lines_; ///< of the text with its variables filled in, at least one
    TemplateValues contentValues_;
    DocumentShell shell_;
};

} // namespace ledra
