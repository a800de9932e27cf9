#pragma once

#include "ui/jobs/document_printer.h"
#include "ui/jobs/file_importer.h"
#include "ui/jobs/mail_sender.h"
#include "ui/jobs/temporary_documents.h"

#include <QMimeData>

namespace ledra {

/// What a window does with documents as files: they are exported, printed, sent and dragged out, and others
/// come in.
class DocumentActions : public QObject
{
    Q_OBJECT

public:
    using Records = std::vector<InvoicePtr>;

    explicit DocumentActions(const WindowParts& parts);

    void exportAs(ExportFormat format, const Records& records);
    void exportList(const Records& records); ///< as CSV
    void print(const Records& records) { printer_->print(records); }

    /// A letter with the document in the format of the settings, to whom it is for.
    void sendByMail(const InvoicePtr& record);

    /// Puts the documents on the clipboard, as files that can be pasted into a folder or a letter.
    void copyAsFiles(const Records& records);

    /// Shows the data files of records.
    void reveal(const Records& records) const;

    /// What a list drags out.
    std::unique_ptr<QMimeData> dragData(const Records& records);

    FileImporter& importer() { return *importer_; }
    DocumentPrinter& printer() { return *printer_; }

private:
    ExportFormat usualFormat() const;

    const WindowParts& parts_;
    TemporaryDocuments temporary_;
    DocumentPrinter* printer_;
    MailSender* mail_;
    FileImporter* importer_;
};

} // namespace ledra
