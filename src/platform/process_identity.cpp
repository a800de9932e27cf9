#include "platform/process_identity.h"

#include <QFile>
#include <QStringList>

#include <unistd.h>

namespace ledra {

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// proc(5): field 22 of "stat" is the start time in clock ticks after boot; the name in field 2 may hold
/// anything, so counting starts behind its closing parenthesis.
QString startTime(const QString& process)
{
    const QByteArray stat = contentOf(QStringLiteral("/proc/%1/stat").arg(process));
    constexpr qsizetype position = 22 - 3;
    return QString::fromLatin1(stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(position));
}

QString identityOf(const QString& process)
{
    const QString boot =
        QString::fromLatin1(contentOf(QStringLiteral("/proc/sys/kernel/random/boot_id")).trimmed());
    return QStringList{boot, process, startTime(process)}.join(u':');
}

} // namespace

QString processIdentity()
{
    static const QString identity = identityOf(QString::number(::getpid()));
    return identity;
}

bool isAlive(const QString& identity)
{
    const QStringList parts = identity.split(u':');
    return parts.size() == 3 && !parts[2].isEmpty() && identityOf(parts[1]) == identity;
}

} // namespace ledra
