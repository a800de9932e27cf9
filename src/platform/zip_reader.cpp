#include "platform/descriptor.h"
#include "platform/folder_listing.h"
#include "platform/zip_archive.h"
#include "platform/zip_inspection.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace ledra {

namespace {

using Result = std::expected<void, ArchiveError>;

std::unexpected<ArchiveError> systemFault(const QByteArray& entry)
{
    return failedEntry(entry, QString::fromLocal8Bit(std::strerror(errno)));
}

std::expected<ZipHandle, ArchiveError> openArchive(const QString& path)
{
    constexpr qint64 emptyArchive = 22; // bytes; the library takes a file of none for an archive
    const QFileInfo file(path);
    if (!file.isFile())
        return archiveFault(ArchiveFault::notAnArchive,
                            file.exists() ? QStringLiteral("not a file") : QStringLiteral("no such file"));
    int code = 0;
    ZipHandle zip(file.size() < emptyArchive
                      ? nullptr
                      : zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &code));
    if (zip)
        return zip;
    if (code == ZIP_ER_OK || code == ZIP_ER_NOZIP)
        return archiveFault(ArchiveFault::notAnArchive, QStringLiteral("not a ZIP archive"));
    if (code == ZIP_ER_INCONS)
        return archiveFault(ArchiveFault::failed,
                            QStringLiteral("the archive is damaged: it contradicts itself"));
    ZipProblem problem;
    problem.set(code, errno);
    return archiveFault(ArchiveFault::notAnArchive, problem.text());
}

/// Unpacks what has been inspected.
class Unpacking
{
public:
    Unpacking(zip_t* zip, int folder) : zip_(zip), folder_(folder), room_(roomSize, Qt::Uninitialized) {}

    Result makeFolders(const ZipNames& names) const;
    Result unpack(const PackedFile& file);

private:
    Result copy(const PackedFile& file, zip_file_t* from, const Descriptor& to);

    static constexpr qsizetype roomSize = 1 << 16;

    zip_t* zip_;
    int folder_;
    QByteArray room_;
};

Result Unpacking::makeFolders(const ZipNames& names) const
{
    for (std::size_t at = 0; at < names.folderCount(); ++at) {
        const QByteArray path = names.folderPath(at);
        if (::mkdirat(folder_, path.constData(), 0755) != 0)
            return systemFault(path);
    }
    return {};
}

Result Unpacking::unpack(const PackedFile& file)
{
    const auto close = [](zip_file_t* opened) { zip_fclose(opened); };
    const std::unique_ptr<zip_file_t, decltype(close)> from(zip_fopen_index(zip_, file.index, 0), close);
    if (!from)
        return failedEntry(file.name, QString::fromLocal8Bit(zip_strerror(zip_)));
    // No folder on the path can be a link: all of them have just been made.
    const Descriptor to(
        ::openat(folder_, file.name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644));
    return to.isOpen() ? copy(file, from.get(), to) : systemFault(file.name);
}

/// The size that was declared has been found acceptable, so this is all that is ever written. Reading up to
/// the end has the library compare the checksum.
Result Unpacking::copy(const PackedFile& file, zip_file_t* from, const Descriptor& to)
{
    qint64 left = file.size;
    for (;;) {
        const zip_int64_t count = zip_fread(from, room_.data(), static_cast<zip_uint64_t>(room_.size()));
        if (count < 0)
            return failedEntry(file.name, QString::fromLocal8Bit(zip_file_strerror(from)));
        left -= count;
        if (left < 0 || (count == 0 && left > 0))
            return failedEntry(file.name, QStringLiteral("it has not the size that the archive says"));
        if (count == 0)
            return {};
        if (!to.writeAll(QByteArrayView(room_).first(static_cast<qsizetype>(count))))
            return systemFault(file.name);
    }
}

} // namespace

Result extractArchive(const QString& archive, const QString& folder, const ArchiveLimits& limits)
{
    const auto problem = [&](const QString& reason) {
        return archiveFault(ArchiveFault::failed, folder + QStringLiteral(": ") + reason);
    };
    const auto zip = openArchive(archive);
    if (!zip)
        return std::unexpected(zip.error());
    const auto contents = inspectArchive(zip->get(), QFileInfo(archive).size(), limits);
    if (!contents)
        return std::unexpected(contents.error());
    const auto present = listFolder(folder);
    if (!present || !present->empty())
        return problem(present ? QStringLiteral("not empty") : present.error().reason);
    const Descriptor root(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Unpacking unpacking(zip->get(), root.number());
    Result result = root.isOpen() ? unpacking.makeFolders(contents->names) : systemFault(folder.toUtf8());
    for (auto file = contents->files.cbegin(); result && file != contents->files.cend(); ++file)
        result = unpacking.unpack(*file);
    return result;
}

} // namespace ledra
