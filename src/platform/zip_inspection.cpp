#include "platform/zip_inspection.h"

#include <sys/stat.h>

#include <algorithm>

namespace ledra {

namespace {

using Result = std::expected<void, ArchiveError>;

std::unexpected<ArchiveError> refused(const QString& reason)
{
    return archiveFault(ArchiveFault::refused, reason);
}

std::unexpected<ArchiveError> refused(const QByteArray& name, const QString& reason)
{
    return refused(QStringLiteral("“%1”: %2").arg(shownName(name), reason));
}

/// A name without the "./" with which some programs begin all of theirs; empty for the folder itself.
QByteArray withoutDot(QByteArray name)
{
    while (name.startsWith("./"))
        name.remove(0, 2);
    return name;
}

/// Looks through all entries of an archive.
class Inspection
{
public:
    Inspection(zip_t* zip, qint64 archiveBytes, const ArchiveLimits& limits)
        : zip_(zip),
          limits_(limits),
          archiveBytes_(archiveBytes),
          unpackedLimit_(std::min(limits.totalBytes, std::max(harmlessBytes, archiveBytes * limits.ratio)))
    {}

    std::expected<ArchiveContents, ArchiveError> run();

private:
    Result inspect(zip_uint64_t index);
    std::expected<QByteArray, ArchiveError> nameOf(zip_uint64_t index) const;
    Result checkKind(zip_uint64_t index, const QByteArray& name) const;
    Result checkPacking(const zip_stat_t& status, const QByteArray& name) const;
    Result count(const zip_stat_t& status, const QByteArray& name);

    zip_t* zip_;
    ArchiveLimits limits_;
    qint64 archiveBytes_;
    qint64 unpackedLimit_;
    qint64 unpacked_ = 0;
    qint64 packed_ = 0;
    ArchiveContents contents_;
};

std::expected<ArchiveContents, ArchiveError> Inspection::run()
{
    const zip_int64_t count = zip_get_num_entries(zip_, 0);
    for (zip_int64_t index = 0; index < count; ++index) {
        if (const Result inspected = inspect(static_cast<zip_uint64_t>(index)); !inspected)
            return std::unexpected(inspected.error());
    }
    return std::move(contents_);
}

Result Inspection::inspect(zip_uint64_t index)
{
    auto name = nameOf(index);
    if (!name)
        return std::unexpected(name.error());
    const bool isNamed = !name->isEmpty();
    name = withoutDot(*name);
    if (isNamed && name->isEmpty())
        return {};
    if (const auto added = contents_.names.add(*name); !added)
        return refused(*name, added.error());
    if (contents_.names.count() > limits_.entries)
        return refused(QStringLiteral("more than %1 files and folders").arg(limits_.entries));
    zip_stat_t status{};
    if (zip_stat_index(zip_, index, 0, &status) != 0)
        return failedEntry(*name, QString::fromLocal8Bit(zip_strerror(zip_)));
    Result result = checkKind(index, *name);
    if (result)
        result = checkPacking(status, *name);
    if (result)
        result = count(status, *name);
    if (result && !name->endsWith('/'))
        contents_.files.push_back({index, *name, static_cast<qint64>(status.size)});
    return result;
}

/// The name as UTF-8. What is not marked as that and does not look like it is taken for the old code page, in
/// which control characters have glyphs. (Of zero bytes the library makes blanks when it reads a name.)
std::expected<QByteArray, ArchiveError> Inspection::nameOf(zip_uint64_t index) const
{
    const char* const stored = zip_get_name(zip_, index, ZIP_FL_ENC_RAW);
    const char* const name = zip_get_name(zip_, index, ZIP_FL_ENC_GUESS);
    if (!stored || !name)
        return refused(QStringLiteral("an entry has no name"));
    const auto isControl = [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7f'; };
    if (std::ranges::any_of(QByteArrayView(stored), isControl))
        return refused(name, QStringLiteral("the name has control characters"));
    return name;
}

/// Only what is a file or a folder, by its name and by what other systems say of it, is accepted.
Result Inspection::checkKind(zip_uint64_t index, const QByteArray& name) const
{
    constexpr int unixModeShift = 16;
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(zip_, index, 0, &system, &attributes) != 0)
        return failedEntry(name, QString::fromLocal8Bit(zip_strerror(zip_)));
    const zip_uint32_t type = (attributes >> unixModeShift) & S_IFMT;
    const bool isKnown = type == 0 || type == S_IFREG || (type == S_IFDIR && name.endsWith('/'));
    return isKnown ? Result() : refused(name, QStringLiteral("neither a file nor a folder"));
}

Result Inspection::checkPacking(const zip_stat_t& status, const QByteArray& name) const
{
    constexpr zip_uint64_t needed = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD;
    if ((status.valid & needed) != needed)
        return failedEntry(name, QStringLiteral("its size is not known"));
    if (status.encryption_method != ZIP_EM_NONE)
        return refused(name, QStringLiteral("it is encrypted"));
    if (status.comp_method != ZIP_CM_STORE && status.comp_method != ZIP_CM_DEFLATE)
        return refused(name, QStringLiteral("it is packed in a way that is not supported"));
    return {};
}

Result Inspection::count(const zip_stat_t& status, const QByteArray& name)
{
    if (name.endsWith('/') && status.size != 0)
        return refused(name, QStringLiteral("a folder with content"));
    if (status.size > static_cast<zip_uint64_t>(limits_.fileBytes))
        return refused(name, QStringLiteral("larger than %1 MB").arg(limits_.fileBytes >> 20));
    unpacked_ += static_cast<qint64>(status.size);
    if (unpacked_ > unpackedLimit_)
        return refused(QStringLiteral("it unpacks to more than %1 MB").arg(unpackedLimit_ >> 20));
    // Several entries may point at the same bytes, which unpacks to more than its size lets one think.
    if (status.comp_size > static_cast<zip_uint64_t>(archiveBytes_ - packed_))
        return refused(QStringLiteral("its entries are larger than the archive"));
    packed_ += static_cast<qint64>(status.comp_size);
    return {};
}

} // namespace

std::unexpected<ArchiveError> archiveFault(ArchiveFault fault, const QString& reason)
{
    return std::unexpected(ArchiveError{fault, reason});
}

std::unexpected<ArchiveError> failedEntry(const QByteArray& name, const QString& reason)
{
    return archiveFault(ArchiveFault::failed, QStringLiteral("“%1”: %2").arg(shownName(name), reason));
}

std::expected<ArchiveContents, ArchiveError> inspectArchive(zip_t* zip, qint64 archiveBytes,
                                                            const ArchiveLimits& limits)
{
    return Inspection(zip, archiveBytes, limits).run();
}

} // namespace ledra
