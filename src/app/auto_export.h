#pragma once

#include "app/export_batch.h"
#include "app/ledra_app.h"

#include <QObject>
#include <QSet>
#include <QTimer>

#include <memory>
#include <vector>

namespace ledra {

/// Whether an invoice is exported by itself: an invoice or a cancellation that has left the house. What is
/// cancelled stays as it was exported.
bool isAutoExported(const Invoice& invoice);

/// The formats that the settings ask for.
std::vector<ExportFormat> autoExportFormats(const Settings& settings);

/// Writes final invoices into the folder of their profile, as PDF, XML and hybrid PDF as the settings say. A
/// file of an earlier export is replaced.
class AutoExport : public QObject
{
    Q_OBJECT

public:
    AutoExport(LedraApp& app, WebEngine& engine, WebFontManager& fonts, ExportObserver& observer);

    /// From now on every final invoice that is saved is exported a moment later.
    void follow();

    /// Exports all final invoices of the active profile. Says finished() when that is done, also when there
    /// is nothing to do.
    void exportAllEligible();

    bool hasFailures() const { return hasFailures_; }

    /// Why nothing would be exported; nothing when all is set up.
    std::optional<QString> problem() const;

Q_SIGNALS:
    void finished();

private:
    void exportWaiting();
    void start(const std::vector<InvoicePtr>& invoices);
    void runNext();

    LedraApp& app_;
    WebEngine& engine_;
    WebFontManager& fonts_;
    ExportObserver& observer_;
    QTimer pause_;        ///< until somebody who is typing has stopped
    QSet<QUuid> waiting_; ///< saved since the last export
    std::vector<ExportOrder> orders_;
    std::unique_ptr<ExportBatch> batch_; ///< the one under way
    bool hasFailures_ = false;
};

} // namespace ledra
