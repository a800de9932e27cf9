#include "app/auto_export_folder.h"

#include "model/clock.h"
#include "platform/folder_bookmark.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

QString AutoExportFolder::key(const char* prefix) const
{
    return QString::fromLatin1(prefix) + idText(profileId_);
}

std::optional<QString> AutoExportFolder::path() const
{
    const QVariant stored = defaults_.value(key("autoExportInvoicesFolderBookmark_"));
    if (!stored.isValid())
        return std::nullopt;
    const auto resolved = resolveFolderBookmark(stored.toByteArray());
    const bool isThere = resolved && !resolved->isStale && QFileInfo(resolved->path).isDir();
    if (isThere)
        return resolved->path;
    const QString remembered = defaults_.value(key("autoExportInvoicesFolderPath_")).toString();
    console_.failure(
        QStringLiteral("AutoExportHelper: Failed to resolve bookmark: ") +
        (resolved ? remembered + QStringLiteral(" is another folder, or gone") : resolved.error()));
    return std::nullopt;
}

std::expected<void, QString> AutoExportFolder::choose(const QString& folder)
{
    const QString path = QDir(folder).absolutePath();
    if (!QFileInfo(path).isDir())
        return std::unexpected(path + QStringLiteral(": no such folder"));
    const auto stored =
        defaults_.setValue(key("autoExportInvoicesFolderBookmark_"), makeFolderBookmark(path));
    return stored ? defaults_.setValue(key("autoExportInvoicesFolderPath_"), path) : stored;
}

} // namespace ledra
