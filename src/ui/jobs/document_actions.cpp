#include "ui/jobs/document_actions.h"

#include "ui/jobs/csv_dialog.h"
#include "ui/jobs/document_drag.h"
#include "ui/jobs/export_flow.h"
#include "ui/jobs/export_orders.h"
#include "ui/jobs/file_reveal.h"

#include <QClipboard>
#include <QGuiApplication>

namespace ledra {

DocumentActions::DocumentActions(const WindowParts& parts)
    : QObject(&parts.window),
      parts_(parts),
      temporary_(parts),
      printer_(new DocumentPrinter(parts, temporary_)),
      mail_(new MailSender(parts)),
      importer_(new FileImporter(parts))
{}

void DocumentActions::exportAs(ExportFormat format, const Records& records)
{
    exportToFiles(parts_, records, format);
}

void DocumentActions::exportList(const Records& records)
{
    exportCsv(parts_, records);
}

ExportFormat DocumentActions::usualFormat() const
{
    const QString text =
        parts_.app.settings().text(QStringLiteral("defaultExportFormat")).value_or(QString());
    return enumFromRawValue<ExportFormat>(text.toStdString()).value_or(ExportFormat::pdf);
}

void DocumentActions::sendByMail(const InvoicePtr& record)
{
    const Profile& profile = **parts_.app.profileManager().activeProfile();
    Mail mail{(*record)->email, documentTitle(**record, profile), {}};
    temporary_.make({record}, usualFormat(), ExportPurpose::temporary, tr("Send by E-Mail"),
                    [this, mail](const QStringList& files) mutable {
                        mail.files = files;
                        mail_->compose(mail);
                    });
}

void DocumentActions::copyAsFiles(const Records& records)
{
    temporary_.make(records, usualFormat(), ExportPurpose::sharing, tr("Copy as File"),
                    [this](const QStringList& files) {
                        QList<QUrl> urls;
                        for (const QString& file : files)
                            urls += QUrl::fromLocalFile(file);
                        auto data = std::make_unique<QMimeData>();
                        data->setUrls(urls);
                        QGuiApplication::clipboard()->setMimeData(data.release()); // which the clipboard owns
                        parts_.messages.note(tr("Copied. Paste it into a folder or a letter."));
                    });
}

void DocumentActions::reveal(const Records& records) const
{
    QStringList files;
    for (const InvoicePtr& record : records)
        files += parts_.app.invoiceManager().filePath((*record)->id);
    files.removeAll(QString());
    FileReveal().show(files);
}

std::unique_ptr<QMimeData> DocumentActions::dragData(const Records& records)
{
    return std::make_unique<DocumentDrag>(temporary_, records);
}

} // namespace ledra
