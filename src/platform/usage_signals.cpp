#include "platform/usage_signals.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace ledra {

void UsageSignals::record(const QString& name)
{
    if (!defaults_.boolean(QStringLiteral("collectData"), false))
        return;
    QDir().mkpath(QFileInfo(file_).path());
    QFile file(file_);
    // A signal that cannot be kept is of no importance to anybody.
    if (file.open(QIODevice::Append))
        file.write((QDateTime::currentDateTimeUtc().toString(Qt::ISODate) + u' ' + name + u'\n').toUtf8());
}

} // namespace ledra
