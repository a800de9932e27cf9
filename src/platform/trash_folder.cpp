#include "platform/trash_folder.h"

#include "platform/file_move.h"
#include "platform/folder_tree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace ledra {

namespace {

constexpr qint64 infoLimit = 16 << 10;      ///< the longest path takes 12 KiB
constexpr qsizetype longestName = 255 - 32; ///< bytes; number and suffix must still fit into a name
constexpr qsizetype suffixLength = sizeof ".trashinfo" - 1;

bool isTaken(const QString& path)
{
    return statusOf(QFile::encodeName(path).toStdString()).has_value();
}

/// The first value of a key in the one group that counts; empty without.
QByteArray infoValue(const QByteArray& info, const QByteArray& key)
{
    const QList<QByteArray> lines = info.split('\n');
    if (lines.first() != "[Trash Info]")
        return {};
    for (const QByteArray& line : lines.sliced(1)) {
        if (line.startsWith('['))
            break;
        if (line.startsWith(key + '='))
            return line.sliced(key.size() + 1);
    }
    return {};
}

/// Clean and absolute; empty for what is no path, or leads out of the mount point to which it is relative.
QString originalPath(const QByteArray& recorded, const QString& top)
{
    const QByteArray name = QByteArray::fromPercentEncoding(recorded);
    if (name.isEmpty() || name.contains('\0'))
        return {};
    if (name.startsWith('/'))
        return QDir::cleanPath(QFile::decodeName(name));
    if (top.isEmpty())
        return {};
    const QString path = QDir::cleanPath(top + u'/' + QFile::decodeName(name));
    return path.startsWith(top.endsWith(u'/') ? top : top + u'/') ? path : QString();
}

/// Takes the first name that is free: the file that is made says so to every other program.
std::expected<QString, FileError> reserveName(const TrashFolder& trash, const QString& source)
{
    const QString wish = QFileInfo(source).fileName();
    const QString base = QFile::encodeName(wish).size() > longestName ? QStringLiteral("long name") : wish;
    for (int number = 1;; ++number) {
        QString name = number == 1 ? base : base + u'.' + QString::number(number);
        if (isTaken(trash.filePath(name)))
            continue;
        QFile info(trash.infoPath(name));
        if (info.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return name;
        if (!isTaken(info.fileName()))
            return std::unexpected(FileError{info.fileName(), info.errorString()});
    }
}

} // namespace

std::vector<TrashedFile> TrashFolder::entries() const
{
    std::vector<TrashedFile> found;
    const QDir infos(path + QStringLiteral("/info"));
    const QStringList pattern{QStringLiteral("*.trashinfo")};
    for (const QString& info : infos.entryList(pattern, QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        const QString name = info.chopped(suffixLength);
        const auto content = readFile(infos.filePath(info), infoLimit);
        const QString original = content ? originalPath(infoValue(*content, "Path"), top) : QString();
        const bool isName = !name.isEmpty() && name != u"." && name != u"..";
        if (!isName || original.isEmpty() || !isTaken(filePath(name)))
            continue;
        const QString date = QString::fromLatin1(infoValue(*content, "DeletionDate"));
        found.push_back({original, QDateTime::fromString(date, Qt::ISODate).toLocalTime(), filePath(name)});
    }
    return found;
}

std::expected<QString, FileError> TrashFolder::put(const QString& source) const
{
    for (const QString& folder : {path + QStringLiteral("/files"), path + QStringLiteral("/info")}) {
        if (!QDir().mkpath(folder))
            return std::unexpected(FileError{folder, QStringLiteral("the folder cannot be made")});
    }
    const auto name = reserveName(*this, source);
    if (!name)
        return name;
    auto moved = writeInfo(infoPath(*name), source);
    if (moved)
        moved = moveFile(source, filePath(*name));
    if (!moved) {
        if (!isTaken(filePath(*name)) && !QFile::remove(infoPath(*name)))
            moved.error().reason += QStringLiteral("; its entry in the trash remains");
        return std::unexpected(moved.error());
    }
    return filePath(*name);
}

QString infoPathOf(const QString& trashedPath)
{
    const QFileInfo place(trashedPath);
    return TrashFolder{QFileInfo(place.path()).path(), {}}.infoPath(place.fileName());
}

std::expected<void, FileError> writeInfo(const QString& infoPath, const QString& source)
{
    const QString date = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddThh:mm:ss"));
    const QByteArray content = "[Trash Info]\nPath=" + QUrl::toPercentEncoding(source, "/") +
                               "\nDeletionDate=" + date.toLatin1() + '\n';
    QFile info(infoPath);
    if (!info.open(QIODevice::WriteOnly) || info.write(content) != content.size() || !info.flush())
        return std::unexpected(FileError{infoPath, info.errorString()});
    return {};
}

} // namespace ledra
