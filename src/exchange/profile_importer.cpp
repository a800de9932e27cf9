#include "exchange/profile_importer.h"

#include "platform/tree_copy.h"
#include "platform/working_folder.h"
#include "platform/zip_archive.h"
#include "store/profile_json.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

std::unexpected<ArchiveFailure> failed(ProfileImportError error, const QString& detail = {})
{
    return std::unexpected(ArchiveFailure(error, detail));
}

/// The folders that hold a "profile.json"; not within one of those again.
QStringList profileFoldersIn(const QString& folder, int depth = 3)
{
    QStringList found;
    for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString path = folder + u'/' + name;
        if (isProfileFolder(path))
            found += path;
        else if (depth > 1) // archives packed by hand often have a folder around everything
            found += profileFoldersIn(path, depth - 1);
    }
    return found;
}

/// Unpacks a data file; returns where its profiles lie.
std::expected<QStringList, ArchiveFailure> extracted(const QString& path, const WorkingFolder& working)
{
    if (const auto done = extractArchive(path, working.path()); !done) {
        const ProfileImportError error = done.error().fault == ArchiveFault::notAnArchive
                                             ? ProfileImportError::notAnArchive
                                             : ProfileImportError::notExtracted;
        return failed(error, done.error().reason);
    }
    QStringList folders = profileFoldersIn(working.path());
    if (folders.isEmpty())
        return failed(ProfileImportError::noProfiles);
    return folders;
}

/// The name of a profile in a folder's name, which is "3_Name".
QString nameFrom(const QString& folder)
{
    Profile named;
    named.profileName = QFileInfo(folder).fileName();
    return named.displayName();
}

/// Puts a new id into a "profile.json". The rest stays as it is: a newer version of the program may have
/// written more into it than this one knows.
std::expected<void, QString> giveIdentity(const QString& file, const QUuid& id, const NewRecordValues& values)
{
    const auto content = readFile(file, largestRecordFile);
    if (!content)
        return std::unexpected(content.error().text());
    Decoded<Profile> profile = decodeProfile(*content, values);
    if (!profile)
        return std::unexpected(profile.error().text());
    QByteArray changed = *content;
    changed.replace(idText(profile->id).toLatin1(), idText(id).toLatin1());
    const Decoded<Profile> again = decodeProfile(changed, values);
    profile->id = id;
    if (!again || *again != *profile) // it has no id, or one of another form
        changed = fileText(*profile);
    if (const auto written = writeExport(file, changed, Overwrite::replace); !written)
        return std::unexpected(written.error().text());
    return {};
}

} // namespace

QString ImportedProfiles::summary() const
{
    QString text = QStringLiteral("Successfully imported %1 profile(s).\n").arg(profiles.size());
    if (!failures.empty())
        text += QStringLiteral("Failed to import %1 profile(s).").arg(failures.size());
    return text;
}

std::expected<ProfilePtr, StoreFailure> ProfileImporter::take(const QString& folder,
                                                              const std::optional<QUuid>& apart)
{
    const QString file = folder + QStringLiteral("/profile.json");
    const QUuid id = context_.ids.newId();
    if (const auto given = giveIdentity(file, id, context_.newRecordValues()); !given)
        context_.console.failure(QStringLiteral("Warning: Could not update profile ID and name: ") +
                                 given.error());
    return profiles_.adoptFolder(folder, profiles_.uniqueName(nameFrom(folder), apart));
}

std::expected<ImportedProfiles, ArchiveFailure> ProfileImporter::importFile(const QString& path,
                                                                            const std::optional<QUuid>& apart)
{
    const auto working = WorkingFolder::create(QStringLiteral("LedraDataImport"));
    if (!working)
        return failed(ProfileImportError::notExtracted, working.error().text());
    const auto folders = extracted(path, *working);
    if (!folders)
        return std::unexpected(folders.error());
    ImportedProfiles imported;
    for (const QString& folder : *folders) {
        if (const auto profile = take(folder, apart))
            imported.profiles.push_back(*profile);
        else
            imported.failures.push_back({nameFrom(folder), profile.error().text});
    }
    profiles_.reload();
    return imported;
}

std::expected<QStringList, ArchiveFailure> ProfileImporter::unpack(const QString& path, const QString& folder)
{
    const auto working = WorkingFolder::create(QStringLiteral("LedraDataImport"));
    if (!working)
        return failed(ProfileImportError::notExtracted, working.error().text());
    const auto folders = extracted(path, *working);
    if (!folders)
        return folders;
    if (!QDir().mkpath(folder) || !QDir(folder).isEmpty())
        return std::unexpected(
            ArchiveFailure(QStringLiteral("The folder is not empty, or cannot be made."), folder));
    QStringList names;
    for (const QString& profile : *folders) {
        names += QFileInfo(profile).fileName();
        const auto copied =
            copyTree(nativePath(profile), nativePath(folder + u'/' + names.back()), Durability::none);
        if (!copied)
            return failed(ProfileImportError::notExtracted, copied.error().text());
    }
    if (const auto synced = syncFileSystem(nativePath(folder)); !synced)
        return failed(ProfileImportError::notExtracted, synced.error().text());
    return names;
}

} // namespace ledra
