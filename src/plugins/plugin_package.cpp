#include "plugins/plugin_package.h"

#include "platform/tree_copy.h"
#include "platform/zip_archive.h"
#include "plugins/plugin_update_error.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <filesystem>
#include <system_error>

namespace ledra {

namespace {

namespace fs = std::filesystem;

constexpr ArchiveLimits packageLimits = {
    .totalBytes = qint64{64} << 20, .entries = 2000, .fileBytes = qint64{16} << 20, .ratio = 200};

QString shownPath(const fs::path& path)
{
    constexpr qsizetype longest = 100;
    return u'“' + plainLine(QString::fromStdString(path.native()), longest) + u'”';
}

/// Counts what a folder holds, and says what is wrong with an entry.
class Inspection
{
public:
    explicit Inspection(const fs::path& root) : root_(root) {}

    QString problemOf(const fs::directory_entry& entry)
    {
        const fs::path name = entry.path().lexically_relative(root_);
        std::error_code problem;
        const fs::file_type type = entry.symlink_status(problem).type();
        if (type == fs::file_type::symlink)
            return shownPath(name) + QStringLiteral(" is a link, which no package may hold");
        if (type != fs::file_type::regular && type != fs::file_type::directory)
            return shownPath(name) + QStringLiteral(" is neither a file nor a folder");
        const QString folded =
            QString::fromStdString(name.native()).normalized(QString::NormalizationForm_C).toCaseFolded();
        if (names_.contains(folded))
            return shownPath(name) +
                   QStringLiteral(" differs from another name only in the case of its letters");
        names_.insert(folded);
        const qint64 size =
            type == fs::file_type::regular ? static_cast<qint64>(entry.file_size(problem)) : 0;
        bytes_ += size;
        if (size > packageLimits.fileBytes || bytes_ > packageLimits.totalBytes ||
            names_.size() > packageLimits.entries)
            return QStringLiteral("the package is too large");
        return {};
    }

private:
    fs::path root_;
    QSet<QString> names_;
    qint64 bytes_ = 0;
};

/// What an archive or a folder is named after, without the ending; empty for another ending.
QString baseName(const QString& path, const QString& ending)
{
    const QString name = QFileInfo(path).fileName();
    return name.endsWith(ending, Qt::CaseInsensitive) ? name.chopped(ending.size()) : QString();
}

} // namespace

std::expected<PluginManifest, QString> inspectPackage(const QString& folder)
{
    const fs::path root = nativePath(folder);
    std::error_code problem;
    Inspection inspection(root);
    for (fs::recursive_directory_iterator entry(root, problem), end; !problem && entry != end;
         entry.increment(problem)) {
        if (const QString found = inspection.problemOf(*entry); !found.isEmpty())
            return std::unexpected(found);
    }
    if (problem)
        return std::unexpected(folder + QStringLiteral(": ") + QString::fromStdString(problem.message()));
    return readManifest(folder);
}

std::expected<void, QString> requireMainModule(const QString& folder)
{
    if (!QFileInfo(folder + u'/' + mainModule).isFile())
        return std::unexpected(errorText(PluginUpdateError::noMainModule));
    return {};
}

std::expected<OpenedPackage, QString> unpackPackage(const QString& archive, const QString& working)
{
    if (const auto extracted = extractArchive(archive, working, packageLimits); !extracted)
        return std::unexpected(extracted.error().reason);
    if (QFileInfo(working + u'/' + manifestFile).isFile())
        return OpenedPackage{{}, working};
    // Forges put all into one folder; a package may be packed as the folder that it is.
    for (const QString& name : QDir(working).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString inner = working + u'/' + name;
        if (QFileInfo(inner + u'/' + manifestFile).isFile())
            return OpenedPackage{baseName(name, pluginFolderEnding), inner};
        for (const QString& deeper :
             QDir(inner).entryList({u'*' + pluginFolderEnding}, QDir::Dirs, QDir::Name)) {
            if (QFileInfo(inner + u'/' + deeper + u'/' + manifestFile).isFile())
                return OpenedPackage{baseName(deeper, pluginFolderEnding), inner + u'/' + deeper};
        }
    }
    return OpenedPackage{};
}

std::expected<OpenedPackage, QString> openPackage(const QString& path, const QString& working)
{
    const QString folder = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (!QFileInfo::exists(folder))
        return std::unexpected(QStringLiteral("no such file"));
    std::expected<OpenedPackage, QString> opened =
        OpenedPackage{baseName(folder, pluginFolderEnding), folder};
    if (const QString packed = baseName(folder, pluginArchiveEnding);
        !packed.isEmpty() && QFileInfo(folder).isFile()) {
        opened = unpackPackage(folder, working);
        if (opened && opened->id.isEmpty())
            opened->id = packed;
    }
    if (!opened)
        return opened;
    if (opened->folder.isEmpty())
        return std::unexpected(QStringLiteral("The selected plugin is missing a plugin.json manifest."));
    if (!QFileInfo(opened->folder).isDir() || !isPluginId(opened->id))
        return std::unexpected(
            QStringLiteral("a plugin is a folder “NAME.ledraplugin” or a file “NAME.ledraplugin.zip”"));
    return opened;
}

} // namespace ledra
