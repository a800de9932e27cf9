#include "exchange/styling_archives.h"

#include "platform/working_folder.h"
#include "platform/zip_archive.h"
#include "store/styling_folder.h"
#include "store/styling_json.h"

#include <QDir>
#include <QFile>

namespace ledra {

namespace {

const QString stylingFile = QStringLiteral("styling.json");

template <class Error>
std::unexpected<ArchiveFailure> failed(Error error, const QString& detail = {})
{
    return std::unexpected(ArchiveFailure(error, detail));
}

/// The files of a styling in a folder: its record, and the logo and the style sheet that it is shown with.
QStringList filesOf(const QString& folder)
{
    QStringList files = {stylingFile};
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (bool (*isOfKind)(const QString&) : {isLogoFile, isStyleSheetFile}) {
        const auto found = std::ranges::find_if(names, isOfKind);
        if (found != names.end())
            files += *found;
    }
    return files;
}

/// What a style file holds, unpacked.
struct StyleFiles
{
    Styling styling;
    QString logo;       ///< its path; empty without one
    QString styleSheet; ///< the same
};

/// The folder that holds the record: the working folder itself, or one in it.
QString folderOfRecord(const QString& working)
{
    if (QFile::exists(working + u'/' + stylingFile))
        return working;
    for (const QString& name : QDir(working).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (QFile::exists(working + u'/' + name + u'/' + stylingFile))
            return working + u'/' + name;
    }
    return {};
}

std::expected<StyleFiles, ArchiveFailure> readStyle(const QString& working, const NewRecordValues& values)
{
    const QString folder = folderOfRecord(working);
    if (folder.isEmpty())
        return failed(StylingImportError::noStyling);
    const auto content = readFile(folder + u'/' + stylingFile, largestRecordFile);
    const Decoded<Styling> styling =
        content ? decodeStyling(*content, values) : std::unexpected(DecodingError{});
    if (!styling)
        return failed(StylingImportError::notAStyle,
                      content ? styling.error().text() : content.error().reason);
    StyleFiles files{*styling, {}, {}};
    for (const QString& name : filesOf(folder)) {
        if (isLogoFile(name))
            files.logo = folder + u'/' + name;
        else if (isStyleSheetFile(name))
            files.styleSheet = folder + u'/' + name;
    }
    return files;
}

} // namespace

std::expected<void, ArchiveFailure> StylingExporter::write(const QUuid& profileId, const QString& target,
                                                           Overwrite overwrite) const
{
    const ProfilePtr profile = profiles_.find(profileId);
    const std::optional<QString> folder = profile ? profiles_.profileFolder(**profile) : std::nullopt;
    if (!folder)
        return failed(StylingExportError::unknownProfile);
    if (!QFile::exists(*folder + u'/' + stylingFile))
        return failed(StylingExportError::noStyling);
    const auto working = WorkingFolder::create(QStringLiteral("LedraStyleExport"));
    if (!working)
        return failed(StylingExportError::notCreated, working.error().text());
    for (const QString& name : filesOf(*folder)) {
        if (!QFile::copy(*folder + u'/' + name, working->path() + u'/' + name))
            return failed(StylingExportError::notCreated, name + QStringLiteral(" cannot be copied"));
    }
    if (const auto written = writeArchive(working->path(), target, overwrite); !written)
        return failed(StylingExportError::notCreated, written.error().text());
    return {};
}

std::expected<void, ArchiveFailure> StylingImporter::importFile(const QString& path)
{
    const auto working = WorkingFolder::create(QStringLiteral("LedraStyleImport"));
    if (!working)
        return failed(StylingImportError::notExtracted, working.error().text());
    if (const auto extracted = extractArchive(path, working->path()); !extracted)
        return failed(extracted.error().fault == ArchiveFault::notAnArchive
                          ? StylingImportError::notAStyle
                          : StylingImportError::notExtracted,
                      extracted.error().reason);
    const auto files = readStyle(working->path(), context_.newRecordValues());
    if (!files)
        return std::unexpected(files.error());
    if (!stylings_.styling())
        return failed(StylingImportError::unknownProfile);
    if (const auto replaced = stylings_.replace(files->styling, files->logo, files->styleSheet); !replaced)
        return failed(StylingImportError::notExtracted, replaced.error().text);
    return {};
}

} // namespace ledra
