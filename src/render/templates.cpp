#include "render/templates.h"

#include <QFile>

static void initialiseTemplates()
{
    Q_INIT_RESOURCE(templates);
}

namespace ledra {

std::expected<QString, QString> templateText(const QString& fileName)
{
    initialiseTemplates();
    QFile file(QStringLiteral(":/templates/") + fileName);
    if (!file.open(QIODevice::ReadOnly))
        return std::unexpected(fileName + QStringLiteral(": ") + file.errorString());
    return QString::fromUtf8(file.readAll());
}

} // namespace ledra
