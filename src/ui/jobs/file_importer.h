#pragma once

#include "ui/window_parts.h"

#include <QObject>
#include <QUrl>

namespace ledra {

/// Takes files into the data: chosen in a panel, dropped on the window or handed over by the desktop.
/// Documents are taken in at once and can be taken back; whatever cannot is asked for first.
class FileImporter : public QObject
{
    Q_OBJECT

public:
    explicit FileImporter(const WindowParts& parts) : QObject(&parts.window), parts_(parts) {}

    void importPDFs();
    void importEInvoices();
    void importDropped(const QList<QUrl>& urls);

Q_SIGNALS:
    void imported(const QUuid& id); ///< the last record of those that were taken in together

private:
    void importDocuments(const QStringList& files);
    JobResult<QUuid> importDocument(const QString& file);
    void tell(int taken, const QStringList& failures);

    const WindowParts& parts_;
};

} // namespace ledra
