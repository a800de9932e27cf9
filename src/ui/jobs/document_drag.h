#pragma once

#include "ui/jobs/temporary_documents.h"

#include <QMimeData>

namespace ledra {

/// Records that are dragged out of the window, as the PDFs that they would be exported as. These are made
/// when somebody asks for them, so that a drag within the window costs nothing.
class DocumentDrag : public QMimeData
{
    Q_OBJECT

public:
    DocumentDrag(TemporaryDocuments& documents, std::vector<InvoicePtr> records)
        : documents_(documents), records_(std::move(records)), files_(std::make_shared<Files>())
    {}

    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    struct Files
    {
        QList<QUrl> urls;
        bool isMade = false; ///< or cannot be made
        bool isUnderWay = false;
    };

    void makeFiles() const;

    TemporaryDocuments& documents_;
    std::vector<InvoicePtr> records_;
    std::shared_ptr<Files> files_; ///< outlives a drag that ends while they are made
};

} // namespace ledra
