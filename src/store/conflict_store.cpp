#include "store/conflict_store.h"

#include "store/json_reader.h"

#include <QFileInfo>

namespace ledra {

namespace {

const QString originSuffix = QStringLiteral(".origin");
constexpr qint64 longestPath = 1 << 16;

/// The number that a name begins with; 0 for a name that has none.
int leadingNumber(const QString& name, QChar end)
{
    return name.left(name.indexOf(end)).toInt();
}

} // namespace

ConflictStore::ConflictStore(QString folder, FileDevice& device) : folder_(std::move(folder)), device_(device)
{}

QString ConflictStore::originFile(int number) const
{
    return folder_ + u'/' + QString::number(number) + originSuffix;
}

std::expected<void, FileError> ConflictStore::writeDurably(const QString& path, const QByteArray& content)
{
    std::expected<void, FileError> step = device_.write(path, content);
    return step ? device_.sync(path) : step;
}

std::expected<Conflict, FileError> ConflictStore::keep(const QString& target, const QByteArray& content)
{
    int number = 1;
    for (const QString& name : device_.files(folder_))
        number = std::max({number, leadingNumber(name, u'-') + 1, leadingNumber(name, u'.') + 1});
    Conflict conflict{number, target,
                      folder_ + u'/' + QString::number(number) + u'-' + QFileInfo(target).fileName()};
    std::expected<void, FileError> step = device_.makeFolder(folder_);
    if (step)
        step = writeDurably(conflict.path, content);
    if (step)
        step = writeDurably(originFile(number), target.toUtf8());
    if (step)
        step = device_.syncFolder(folder_);
    if (!step)
        return std::unexpected(step.error());
    return conflict;
}

std::vector<Conflict> ConflictStore::all() const
{
    std::vector<Conflict> conflicts;
    const QStringList names = device_.files(folder_);
    for (const QString& name : names) {
        const int number = leadingNumber(name, u'-');
        if (number == 0 || name.endsWith(originSuffix))
            continue;
        const auto origin = device_.read(originFile(number), longestPath);
        if (const std::optional<QByteArray> target = origin.value_or(std::nullopt))
            conflicts.push_back(Conflict{number, QString::fromUtf8(*target), folder_ + u'/' + name});
    }
    std::ranges::sort(conflicts, {}, &Conflict::number);
    return conflicts;
}

std::expected<void, FileError> ConflictStore::forget(int number)
{
    return device_.remove(originFile(number));
}

void ConflictStore::relocate(const QString& from, const QString& to)
{
    for (const Conflict& conflict : all()) {
        if (!conflict.target.startsWith(from + u'/'))
            continue;
        const QString target = to + conflict.target.mid(from.size());
        // Should this fail, the version stays kept and only points to a place that is no more.
        (void)writeDurably(originFile(conflict.number), target.toUtf8());
    }
}

} // namespace ledra
