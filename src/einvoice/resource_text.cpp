#include "einvoice/resource_text.h"

#include <QFile>

static void initialiseTemplates()
{
    Q_INIT_RESOURCE(einvoice);
}

namespace ledra {

std::optional<QByteArray> einvoiceResource(const QString& fileName)
{
    initialiseTemplates();
    QFile file(QStringLiteral(":/einvoice/") + fileName);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

} // namespace ledra
