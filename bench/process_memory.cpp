#include "process_memory.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <unistd.h>

namespace ledra::bench {

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The fourth field of proc(5)'s "stat"; the second one, in brackets, may contain spaces.
int parentOf(const QString& process)
{
    const QByteArray stat = content(QStringLiteral("/proc/%1/stat").arg(process));
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return fields.value(1).toInt();
}

std::int64_t memoryOf(int process)
{
    const QByteArray rollup = content(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
    const auto at = rollup.indexOf("\nPss:");
    if (at < 0)
        return 0;
    const QByteArray line = rollup.mid(at + 5, rollup.indexOf('\n', at + 1) - at - 5);
    return line.simplified().split(' ').value(0).toLongLong();
}

} // namespace

std::optional<std::int64_t> proportionalMemory()
{
    QMultiHash<int, int> children;
    for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        if (const int process = name.toInt(); process > 0)
            children.insert(parentOf(name), process);
    }
    std::int64_t sum = 0;
    QList<int> family = {static_cast<int>(::getpid())};
    for (qsizetype i = 0; i < family.size(); ++i) {
        sum += memoryOf(family[i]);
        family += children.values(family[i]);
    }
    return sum > 0 ? std::optional(sum) : std::nullopt;
}

} // namespace ledra::bench
