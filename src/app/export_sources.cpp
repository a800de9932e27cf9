#include "app/export_sources.h"

#include "model/displayed_number.h"
#include "model/document_labels.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace ledra {

namespace {

std::expected<ExportRecord, QString> recordFrom(std::expected<Invoice, QString> invoice)
{
    if (!invoice)
        return std::unexpected(invoice.error());
    return ExportRecord{std::move(*invoice)};
}

std::shared_ptr<const DocumentSetting> activeSetting(LedraApp& app)
{
    return std::make_shared<const DocumentSetting>(app.documentSetting());
}

/// Names that are taken once: of two alike the second gets the beginning of its id as well.
class Stems
{
public:
    QString take(const QString& stem, const QUuid& id)
    {
        const QString free = taken_.contains(stem) ? stem + u'-' + idText(id).left(6) : stem;
        taken_.insert(free);
        return free;
    }

private:
    QSet<QString> taken_;
};

} // namespace

QString fileNameOf(const QString& number)
{
    static const QRegularExpression unsafe(QStringLiteral("[/\\\\:*?\"<>|\\x00-\\x1f]"));
    QString name = QString(number).replace(unsafe, QStringLiteral("-")).trimmed();
    while (name.startsWith(u'.') || name.startsWith(u'-'))
        name.remove(0, 1);
    return name.isEmpty() ? QStringLiteral("document") : name;
}

std::vector<ExportSource> fileSources(const QStringList& paths, BareFiles& files, const Profile& profile,
                                      const Styling& styling)
{
    std::vector<ExportSource> sources;
    QHash<QString, std::shared_ptr<const DocumentSetting>> settings; // by folder
    for (const QString& path : paths) {
        const QString folder = QFileInfo(path).absolutePath();
        if (!settings.contains(folder))
            settings.insert(folder,
                            std::make_shared<const DocumentSetting>(
                                profile, styling, ColorScheme::light,
                                [&files, folder](const QUuid& id) { return files.findInvoice(folder, id); }));
        const QString stem =
            path == standardStream ? QStringLiteral("document") : QFileInfo(path).completeBaseName();
        sources.push_back({path, path, stem, [&files, path] { return recordFrom(files.invoice(path)); },
                           settings.value(folder)});
    }
    return sources;
}

std::vector<ExportSource> recordSources(const std::vector<InvoicePtr>& records, LedraApp& app,
                                        const QString& wordKey)
{
    const auto setting = activeSetting(app);
    std::vector<ExportSource> sources;
    sources.reserve(records.size());
    Stems stems;
    for (const InvoicePtr& record : records) {
        const QUuid id = (*record)->id;
        const QString number = displayedNumber(**record, setting->profile);
        const Language language = (*record)->language.value_or(setting->profile.language);
        const QString name = wordKey.isEmpty() ? number : documentLabel(wordKey, language) + u' ' + number;
        const auto read = [record]() -> std::expected<ExportRecord, QString> {
            return ExportRecord{**record};
        };
        sources.push_back(
            {app.invoiceManager().filePath(id), number, stems.take(fileNameOf(name), id), read, setting});
    }
    return sources;
}

std::vector<ExportSource> reminderSources(const std::vector<ReminderPtr>& reminders, LedraApp& app)
{
    const auto setting = activeSetting(app);
    std::vector<ExportSource> sources;
    sources.reserve(reminders.size());
    Stems stems;
    for (const ReminderPtr& reminder : reminders) {
        const QUuid id = (*reminder)->id;
        const InvoicePtr invoice = app.invoiceManager().find((*reminder)->invoiceId);
        if (!invoice)
            continue;
        const Language language = (*invoice)->language.value_or(setting->profile.language);
        const QString title = documentLabel(reminderHeadline((*reminder)->number), language) + u' ' +
                              displayedNumber(**invoice, setting->profile);
        const auto read = [reminder, invoice]() -> std::expected<ExportRecord, QString> {
            return ExportRecord{**invoice, **reminder};
        };
        sources.push_back(
            {app.reminderManager().filePath(id), title, stems.take(fileNameOf(title), id), read, setting});
    }
    return sources;
}

} // namespace ledra
