#include "ui/jobs/export_orders.h"

#include "model/displayed_number.h"
#include "model/document_labels.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

// In the order of InvoiceType.
constexpr std::array titleKeys = {
    std::pair{InvoiceType::invoice, "Invoice"},
    std::pair{InvoiceType::cancellation, "Cancellation Invoice"},
    std::pair{InvoiceType::quote, "Quote"},
};

QString titleKey(InvoiceType type)
{
    const auto row = std::ranges::find(titleKeys, type, &std::pair<InvoiceType, const char*>::first);
    return row == titleKeys.end() ? QString() : QString::fromLatin1(row->second);
}

QString pathOf(const ExportOrder& order, const QString& stem)
{
    return QDir(order.target).filePath(stem + fileExtension(order.format));
}

} // namespace

ExportOrder exportOrder(const std::vector<InvoicePtr>& records, LedraApp& app, ExportFormat format,
                        ExportPurpose purpose)
{
    QString word;
    if (records.size() == 1)
        word = format == ExportFormat::xrechnung ? QStringLiteral("E-Invoice")
                                                 : titleKey((*records.front())->type);
    ExportOrder order;
    order.sources = recordSources(records, app, word);
    order.format = format;
    order.log = exportLog(format, purpose);
    return order;
}

QString documentTitle(const Invoice& invoice, const Profile& profile)
{
    return documentLabel(titleKey(invoice.type), invoice.language.value_or(profile.language)) + u' ' +
           displayedNumber(invoice, profile);
}

QString fileFilter(ExportFormat format)
{
    return QStringLiteral("%1 (*%2)").arg(displayText(format), fileExtension(format));
}

QStringList existingFiles(const ExportOrder& order)
{
    QStringList files;
    for (const ExportSource& source : order.sources) {
        if (const QString path = pathOf(order, source.stem); QFileInfo::exists(path))
            files += path;
    }
    return files;
}

void keepBoth(ExportOrder& order)
{
    QSet<QString> taken;
    for (const ExportSource& source : order.sources)
        taken.insert(source.stem);
    for (ExportSource& source : order.sources) {
        QString stem = source.stem;
        const auto isFree = [&] {
            return !QFileInfo::exists(pathOf(order, stem)) && (stem == source.stem || !taken.contains(stem));
        };
        for (int number = 2; !isFree(); ++number)
            stem = QStringLiteral("%1 %2").arg(source.stem).arg(number);
        source.stem = stem;
        taken.insert(stem);
    }
}

} // namespace ledra
