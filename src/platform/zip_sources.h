#pragma once

#include "platform/file_io.h"
#include "platform/zip_handle.h"

#include <QFileDevice>

#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <optional>

// What the library reads from and writes to, as it wants it: functions that are given commands.
namespace ledra {

/// A file that goes into an archive. It is opened when its turn comes.
class ZipFileSource
{
public:
    /// What fails is left in `failure`, since the library's own messages name no files.
    ZipFileSource(std::filesystem::path path, const struct stat& state, std::optional<FileError>& failure)
        : path_(std::move(path)), state_(state), failure_(failure)
    {}

    /// Gives it to an archive under a name; returns the number of the entry, or -1.
    static zip_int64_t addTo(zip_t* zip, const QByteArray& name, std::unique_ptr<ZipFileSource> source);

private:
    static zip_int64_t handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t open();
    zip_int64_t read(void* data, zip_uint64_t length);
    zip_int64_t close();
    zip_int64_t status(void* data) const;
    zip_int64_t fail(int code);

    std::filesystem::path path_;
    struct stat state_;
    std::optional<FileError>& failure_;
    ZipProblem problem_;
    int descriptor_ = -1;
};

/// An open file into which an archive is written.
class ZipTarget
{
public:
    explicit ZipTarget(QFileDevice& file) : file_(file) {}

    /// An empty archive that writes itself here when it is closed.
    ZipHandle openArchive(ZipProblem& problem);

private:
    static zip_int64_t handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);
    zip_int64_t write(const void* data, zip_uint64_t length);
    zip_int64_t seek(void* data, zip_uint64_t length);
    zip_int64_t fail(int code, int systemCode);

    QFileDevice& file_;
    ZipProblem problem_;
};

} // namespace ledra
