#include "app/export_sources.h"

#include "model/displayed_number.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace ledra {

namespace {

/// A displayed number as a file name: what separates folders, or means something to other systems, becomes
/// "-".
QString fileNameOf(const QString& number)
{
    static const QRegularExpression unsafe(QStringLiteral("[/\\\\:*?\"<>|\\x00-\\x1f]"));
    QString name = QString(number).replace(unsafe, QStringLiteral("-")).trimmed();
    while (name.startsWith(u'.') || name.startsWith(u'-'))
        name.remove(0, 1);
    return name.isEmpty() ? QStringLiteral("document") : name;
}

} // namespace

std::vector<ExportSource> fileSources(const QStringList& paths, BareFiles& files, const Profile& profile,
                                      const Styling& styling)
{
    std::vector<ExportSource> sources;
    QHash<QString, std::shared_ptr<const DocumentSetting>> settings; // by folder
    for (const QString& path : paths) {
        const QString folder = QFileInfo(path).absolutePath();
        std::shared_ptr<const DocumentSetting>& setting = settings[folder];
        if (!setting)
            setting = std::make_shared<DocumentSetting>(DocumentSetting{
                .profile = profile, .styling = styling, .invoices = [&files, folder](const QUuid& id) {
                    return files.findInvoice(folder, id);
                }});
        const QString stem =
            path == standardStream ? QStringLiteral("document") : QFileInfo(path).completeBaseName();
        sources.push_back({path, path, stem, [&files, path] { return files.invoice(path); }, setting});
    }
    return sources;
}

std::vector<ExportSource> recordSources(const std::vector<InvoicePtr>& records, LedraApp& app)
{
    const InvoiceManager& invoices = app.invoiceManager();
    const auto setting = std::make_shared<DocumentSetting>(
        DocumentSetting{.profile = **app.profileManager().activeProfile(),
                        .styling = **app.stylingManager().styling(),
                        .invoices = [&invoices](const QUuid& id) {
                            const InvoicePtr found = invoices.find(id);
                            return found ? std::optional(**found) : std::nullopt;
                        }});
    std::vector<ExportSource> sources;
    QSet<QString> stems;
    for (const InvoicePtr& record : records) {
        const QString number = displayedNumber(**record, setting->profile);
        QString stem = fileNameOf(number);
        if (stems.contains(stem))
            stem += u'-' + idText((*record)->id).left(6);
        stems.insert(stem);
        const auto read = [record]() -> std::expected<Invoice, QString> { return **record; };
        sources.push_back({invoices.filePath((*record)->id), number, stem, read, setting});
    }
    return sources;
}

} // namespace ledra
