#include "platform/file_reading.h"
#include "platform/folder_tree.h"
#include "platform/zip_archive.h"
#include "platform/zip_names.h"
#include "platform/zip_sources.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <array>
#include <cerrno>
#include <cstdint>
#include <limits>

namespace ledra {

namespace {

namespace fs = std::filesystem;

using Result = std::expected<void, FileError>;

QString text(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

/// Packs a tree into an open file.
class Packing
{
public:
    explicit Packing(QFileDevice& file) : file_(file), target_(file) {}

    Result pack(const fs::path& folder, const QString& path);

private:
    Result addFolder(const fs::path& folder, const QByteArray& prefix);
    Result addEntry(const fs::path& path, const struct stat& state, const QByteArray& name);
    bool settle(zip_int64_t index, const struct stat& state);

    QFileDevice& file_;
    std::optional<FileError> failure_; ///< outlives the archive, whose sources report here
    ZipTarget target_;
    ZipHandle zip_;
    ZipNames names_;
};

Result Packing::pack(const fs::path& folder, const QString& path)
{
    ZipProblem problem;
    zip_ = target_.openArchive(problem);
    if (!zip_)
        return fileProblem(path, problem.text());
    if (const Result added = addFolder(folder, {}); !added)
        return added;
    if (names_.count() == 0) // an archive without entries would not be written at all
        return fileProblem(text(folder), QStringLiteral("there is nothing in it"));
    if (zip_close(zip_.get()) == 0) {
        zip_.release(); // NOLINT(bugprone-unused-return-value): closing has freed it
        return {};
    }
    if (failure_)
        return std::unexpected(*failure_);
    const bool isFile = file_.error() != QFileDevice::NoError;
    return fileProblem(path, isFile ? file_.errorString() : QString::fromLocal8Bit(zip_strerror(zip_.get())));
}

Result Packing::addFolder(const fs::path& folder, const QByteArray& prefix)
{
    const auto names = namesIn(folder);
    if (!names)
        return std::unexpected(names.error());
    for (const fs::path& name : *names) {
        const fs::path path = folder / name;
        const auto state = statusOf(path);
        if (!state)
            return std::unexpected(state.error());
        const bool isFolder = S_ISDIR(state->st_mode);
        const QByteArray entry = prefix + QByteArray::fromStdString(name.native()) + (isFolder ? "/" : "");
        if (const Result added = addEntry(path, *state, entry); !added)
            return added;
        if (const Result inside = isFolder ? addFolder(path, entry) : Result(); !inside)
            return inside;
    }
    return {};
}

Result Packing::addEntry(const fs::path& path, const struct stat& state, const QByteArray& name)
{
    const bool isFolder = S_ISDIR(state.st_mode);
    if (!isFolder && !S_ISREG(state.st_mode))
        return fileProblem(text(path), QStringLiteral("neither a file nor a folder"));
    if (const auto accepted = names_.add(name); !accepted)
        return fileProblem(text(path), accepted.error());
    const zip_int64_t index =
        isFolder
            ? zip_dir_add(zip_.get(), name.constData(), ZIP_FL_ENC_UTF_8)
            : ZipFileSource::addTo(zip_.get(), name, std::make_unique<ZipFileSource>(path, state, failure_));
    if (index < 0 || !settle(index, state))
        return fileProblem(text(path), QString::fromLocal8Bit(zip_strerror(zip_.get())));
    return {};
}

/// Sets what an entry does not get from its source.
bool Packing::settle(zip_int64_t index, const struct stat& state)
{
    constexpr zip_uint32_t ordinaryLevel = 6; // the one that zip programs take
    // The archive's own times are local and even seconds. This field has the seconds since 1970.
    constexpr zip_uint16_t exactTime = 0x5455;
    constexpr int unixModeShift = 16;
    const bool isFolder = S_ISDIR(state.st_mode);
    const auto entry = static_cast<zip_uint64_t>(index);
    const zip_uint32_t mode = isFolder ? S_IFDIR | 0755 : S_IFREG | 0644;
    const time_t modified = state.st_mtim.tv_sec;
    if (zip_file_set_external_attributes(zip_.get(), entry, 0, ZIP_OPSYS_UNIX, mode << unixModeShift) != 0)
        return false;
    if (isFolder ? zip_file_set_mtime(zip_.get(), entry, modified, 0) != 0
                 : zip_set_file_compression(zip_.get(), entry, ZIP_CM_DEFAULT, ordinaryLevel) != 0)
        return false;
    if (modified < 0 || modified > std::numeric_limits<std::int32_t>::max())
        return true;
    std::array<zip_uint8_t, 5> field{1}; // 1: only the time of modification
    qToLittleEndian(static_cast<std::int32_t>(modified), &field[1]);
    return zip_file_extra_field_set(zip_.get(), entry, exactTime, ZIP_EXTRA_FIELD_NEW, field.data(),
                                    field.size(), ZIP_FL_LOCAL | ZIP_FL_CENTRAL) == 0;
}

/// Such an archive would hold itself, or what it is to replace.
bool liesWithin(const QString& path, const QString& folder)
{
    const QString inner = QFileInfo(QFileInfo(path).absolutePath()).canonicalFilePath();
    const QString outer = QFileInfo(folder).canonicalFilePath();
    return !outer.isEmpty() && (inner + u'/').startsWith(outer + u'/');
}

} // namespace

Result writeArchive(const QString& folder, const QString& target, Overwrite overwrite)
{
    const auto write = [&](QFileDevice& file) -> Result {
        Packing packing(file);
        if (const Result packed = packing.pack(QFile::encodeName(folder).toStdString(), target); !packed)
            return packed;
        if (!file.flush())
            return fileProblem(target, file.errorString());
        errno = syncDescriptor(file.handle());
        return errno == 0 ? Result() : systemProblem(target);
    };
    if (liesWithin(target, folder))
        return fileProblem(target, QStringLiteral("an archive cannot lie in the folder that it is made of"));
    if (const Result written = writeExport(target, write, overwrite); !written)
        return written;
    return syncFolder(QFile::encodeName(QFileInfo(target).absolutePath()).toStdString());
}

} // namespace ledra
