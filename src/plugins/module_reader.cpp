#include "plugins/module_reader.h"

#include "platform/file_io.h"

#include <QDir>
#include <QFileInfo>
#include <QUtf8StringView>

namespace ledra {

namespace {

constexpr qint64 largestModule = qint64{4} << 20;
constexpr qsizetype longestPath = 1000;

bool liesBelow(const QString& path, const QString& folder)
{
    return path.startsWith(folder + u'/');
}

} // namespace

ModuleAnswer readModule(const QString& directory, const QString& path)
{
    using Kind = ModuleAnswer::Kind;
    if (path.size() > longestPath || path.contains(QChar(u'\0')))
        return {};
    const QString folder = QDir::cleanPath(directory);
    QString wanted = folder + u'/' + path;
    const bool isInside = liesBelow(QDir::cleanPath(wanted), folder);
    if (isInside && !QFileInfo(wanted).isFile() && QFileInfo(path).suffix().isEmpty())
        wanted += QStringLiteral(".js");
    ModuleAnswer module{Kind::missing, QDir::cleanPath(wanted)};
    if (!liesBelow(module.path, folder))
        return {Kind::escapes, module.path};
    const QFileInfo file(module.path);
    if (!file.isFile())
        return module;
    if (!liesBelow(file.canonicalFilePath(), QFileInfo(folder).canonicalFilePath()))
        return {Kind::escapes, module.path};
    const auto content = readFile(module.path, largestModule);
    if (!content || !QUtf8StringView(*content).isValidUtf8())
        return module;
    return {Kind::found, module.path, QString::fromUtf8(*content)};
}

} // namespace ledra
