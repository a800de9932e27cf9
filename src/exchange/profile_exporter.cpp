#include "exchange/profile_exporter.h"

#include "model/document_labels.h"
#include "model/timestamp.h"
#include "platform/tree_copy.h"
#include "platform/working_folder.h"
#include "platform/zip_archive.h"

#include <QDir>

namespace ledra {

namespace {

std::unexpected<ArchiveFailure> failed(const QString& message)
{
    return std::unexpected(ArchiveFailure(message));
}

} // namespace

std::expected<void, ArchiveFailure> ProfileExporter::write(const std::vector<ProfilePtr>& chosen,
                                                           const QString& target, Overwrite overwrite) const
{
    const auto working = WorkingFolder::create(QStringLiteral("LedraDataExport"));
    if (!working)
        return failed(working.error().text());
    {
        // While the copies are made nobody is half-way through writing a file.
        const InterprocessLock::Guard guard = writer_.lock();
        for (const ProfilePtr& profile : chosen) {
            const QString name = (*profile)->profileName.value_or(QString());
            if (name.isEmpty())
                return failed(errorText(ProfileExportError::missingName));
            const QString folder = profiles_.dataPlace() + u'/' + name;
            if (!QDir(folder).exists())
                return failed(errorText(ProfileExportError::missingFolder) + folder);
            const auto copied =
                copyTree(nativePath(folder), nativePath(working->path() + u'/' + name), Durability::none);
            if (!copied)
                return failed(copied.error().text());
        }
    }
    if (const auto written = writeArchive(working->path(), target, overwrite); !written)
        return failed(written.error().text());
    return {};
}

QString ProfileExporter::fileName(const Profile& profile, QDate today)
{
    return profile.displayName() + u' ' + dayText(today) + dataFileExtension.toString();
}

QString ProfileExporter::fileNameForAll(QDate today, Language language)
{
    return documentLabel(QStringLiteral("Profiles"), language) + u' ' + dayText(today) +
           dataFileExtension.toString();
}

} // namespace ledra
