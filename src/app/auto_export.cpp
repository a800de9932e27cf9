#include "app/auto_export.h"

#include "app/export_sources.h"

#include <chrono>

namespace ledra {

namespace {

using namespace std::chrono_literals;

/// A format, the setting that asks for it, and what the log says.
struct AutoFormat
{
    const char* setting;
    ExportFormat format;
    const char* nameKey; ///< of the word with which the files' names begin
    ExportLog log;
};

constexpr std::array autoFormats = {
    AutoFormat{"autoExportInvoicesEnabled",
               ExportFormat::pdf,
               "Invoice",
               {"Auto-export: PDF saved to ", "Auto-export: Failed to save PDF to "}},
    AutoFormat{"autoExportInvoicesXMLEnabled",
               ExportFormat::xrechnung,
               "E-Invoice",
               {"Auto-export: e-invoice XML saved to ", "Auto-export: Failed to save XML to "}},
    AutoFormat{"autoExportInvoicesZUGFeRDEnabled",
               ExportFormat::zugferd,
               "E-Invoice",
               {"Auto-export: ZUGFeRD PDF saved to ", "Auto-export: Failed to save ZUGFeRD PDF to "}},
};

} // namespace

bool isAutoExported(const Invoice& invoice)
{
    const bool isFinal = invoice.status == Status::sent || invoice.status == Status::paid;
    return isFinal && invoice.type != InvoiceType::quote;
}

std::vector<ExportFormat> autoExportFormats(const Settings& settings)
{
    std::vector<ExportFormat> formats;
    for (const AutoFormat& row : autoFormats) {
        if (settings.boolean(row.setting))
            formats.push_back(row.format);
    }
    return formats;
}

AutoExport::AutoExport(LedraApp& app, WebEngine& engine, WebFontManager& fonts, ExportObserver& observer)
    : app_(app), engine_(engine), fonts_(fonts), observer_(observer)
{
    pause_.setSingleShot(true);
    pause_.setInterval(2s);
    connect(&pause_, &QTimer::timeout, this, &AutoExport::exportWaiting);
}

void AutoExport::follow()
{
    connect(&app_.invoiceManager(), &InvoiceManager::saved, this, [this](const QUuid& id) {
        waiting_.insert(id);
        pause_.start();
    });
}

std::optional<QString> AutoExport::problem() const
{
    if (autoExportFormats(app_.settings()).empty())
        return QStringLiteral("no format is switched on (ledra settings set autoExportInvoicesEnabled true)");
    if (!app_.autoExportFolder().path())
        return QStringLiteral("no folder is chosen (ledra autoexport folder FOLDER)");
    return std::nullopt;
}

void AutoExport::exportWaiting()
{
    if (batch_)
        return; // the end of what is under way asks again
    std::vector<InvoicePtr> invoices;
    for (const QUuid& id : std::exchange(waiting_, {})) {
        const InvoicePtr invoice = app_.invoiceManager().find(id);
        if (invoice && isAutoExported(**invoice))
            invoices.push_back(invoice);
    }
    if (!invoices.empty() && !problem())
        start(invoices);
}

void AutoExport::exportAllEligible()
{
    std::vector<InvoicePtr> invoices;
    std::ranges::copy_if(app_.invoiceManager().invoices(), std::back_inserter(invoices),
                         [](const InvoicePtr& invoice) { return isAutoExported(**invoice); });
    start(invoices);
}

void AutoExport::start(const std::vector<InvoicePtr>& invoices)
{
    const std::optional<QString> folder = app_.autoExportFolder().path();
    for (const AutoFormat& row : autoFormats) {
        if (!folder || invoices.empty() || !app_.settings().boolean(row.setting))
            continue;
        ExportOrder order;
        order.sources = recordSources(invoices, app_, QString::fromLatin1(row.nameKey));
        order.format = row.format;
        order.target = *folder;
        order.overwrite = Overwrite::replace;
        order.log = row.log;
        orders_.push_back(std::move(order));
    }
    QTimer::singleShot(0, this, &AutoExport::runNext);
}

/// One batch after the other: they would only take the engine's pages from each other.
void AutoExport::runNext()
{
    if (orders_.empty()) {
        batch_.reset();
        Q_EMIT finished();
        if (!waiting_.isEmpty())
            pause_.start();
        return;
    }
    ExportOrder order = std::move(orders_.front());
    orders_.erase(orders_.begin());
    batch_ = std::make_unique<ExportBatch>(std::move(order), engine_, fonts_, app_.console(), observer_);
    connect(
        batch_.get(), &ExportBatch::finished, this,
        [this] {
            hasFailures_ = hasFailures_ || batch_->hasFailures();
            runNext();
        },
        Qt::QueuedConnection);
    batch_->start();
}

} // namespace ledra
