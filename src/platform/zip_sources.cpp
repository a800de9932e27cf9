#include "platform/zip_sources.h"

#include "platform/folder_tree.h"

#include <QByteArray>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace ledra {

namespace {

/// What is done at a command of the library.
template <class Source>
struct Command
{
    zip_source_cmd_t command;
    zip_int64_t (*run)(Source& source, void* data, zip_uint64_t length);
};

template <class Source, std::size_t count>
zip_int64_t runCommand(const std::array<Command<Source>, count>& commands, Source& source, void* data,
                       zip_uint64_t length, zip_source_cmd_t command)
{
    zip_int64_t supported = ZIP_SOURCE_MAKE_COMMAND_BITMASK(ZIP_SOURCE_SUPPORTS);
    for (const Command<Source>& row : commands) {
        if (row.command == command)
            return row.run(source, data, length);
        supported |= ZIP_SOURCE_MAKE_COMMAND_BITMASK(row.command);
    }
    return command == ZIP_SOURCE_SUPPORTS ? supported : -1;
}

zip_int64_t nothing(auto& /*source*/, void* /*data*/, zip_uint64_t /*length*/)
{
    return 0;
}

} // namespace

// Files that go into an archive

zip_int64_t ZipFileSource::addTo(zip_t* zip, const QByteArray& name, std::unique_ptr<ZipFileSource> source)
{
    zip_source_t* const made = zip_source_function(zip, &ZipFileSource::handle, source.get());
    if (!made)
        return -1;
    [[maybe_unused]] auto* const owned = source.release(); // freed at the command of that name
    const zip_int64_t index = zip_file_add(zip, name.constData(), made, ZIP_FL_ENC_UTF_8);
    if (index < 0)
        zip_source_free(made);
    return index;
}

zip_int64_t ZipFileSource::handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command)
{
    using Source = ZipFileSource;
    static constexpr std::array<Command<Source>, 6> commands{{
        {ZIP_SOURCE_OPEN, [](Source& source, void*, zip_uint64_t) { return source.open(); }},
        {ZIP_SOURCE_READ, [](Source& source, void* to, zip_uint64_t size) { return source.read(to, size); }},
        {ZIP_SOURCE_CLOSE, [](Source& source, void*, zip_uint64_t) { return source.close(); }},
        {ZIP_SOURCE_STAT, [](Source& source, void* to, zip_uint64_t) { return source.status(to); }},
        {ZIP_SOURCE_ERROR,
         [](Source& source, void* to, zip_uint64_t size) {
             return zip_error_to_data(source.problem_.get(), to, size);
         }},
        {ZIP_SOURCE_FREE,
         [](Source& source, void*, zip_uint64_t) {
             delete &source;
             return zip_int64_t{0};
         }},
    }};
    return runCommand(commands, *static_cast<Source*>(self), data, length, command);
}

zip_int64_t ZipFileSource::open()
{
    descriptor_ = ::open(path_.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
    return descriptor_ < 0 ? fail(ZIP_ER_OPEN) : 0;
}

zip_int64_t ZipFileSource::read(void* data, zip_uint64_t length)
{
    ssize_t count = -1;
    do
        count = ::read(descriptor_, data, length);
    while (count < 0 && errno == EINTR);
    return count < 0 ? fail(ZIP_ER_READ) : count;
}

zip_int64_t ZipFileSource::close()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
    descriptor_ = -1;
    return 0;
}

zip_int64_t ZipFileSource::status(void* data) const
{
    auto* const status = static_cast<zip_stat_t*>(data);
    zip_stat_init(status);
    status->mtime = state_.st_mtim.tv_sec;
    status->size = static_cast<zip_uint64_t>(state_.st_size);
    status->valid = ZIP_STAT_MTIME | ZIP_STAT_SIZE;
    return sizeof(zip_stat_t);
}

zip_int64_t ZipFileSource::fail(int code)
{
    const int systemCode = errno;
    failure_ = fileError(path_, systemCode).error();
    problem_.set(code, systemCode);
    return -1;
}

// The file into which an archive is written

ZipHandle ZipTarget::openArchive(ZipProblem& problem)
{
    zip_source_t* const source = zip_source_function_create(&ZipTarget::handle, this, problem.get());
    if (!source)
        return nullptr;
    ZipHandle zip(zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, problem.get()));
    if (!zip)
        zip_source_free(source);
    return zip;
}

zip_int64_t ZipTarget::handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command)
{
    using Target = ZipTarget;
    // Those that read are never given, but a target that lacks them could not be written to.
    static constexpr std::array<Command<Target>, 15> commands{{
        {ZIP_SOURCE_WRITE, [](Target& to, void* from, zip_uint64_t size) { return to.write(from, size); }},
        {ZIP_SOURCE_SEEK_WRITE,
         [](Target& to, void* from, zip_uint64_t size) { return to.seek(from, size); }},
        {ZIP_SOURCE_TELL_WRITE, [](Target& to, void*, zip_uint64_t) { return zip_int64_t{to.file_.pos()}; }},
        {ZIP_SOURCE_STAT, [](Target& to, void*, zip_uint64_t) { return to.fail(ZIP_ER_READ, ENOENT); }},
        {ZIP_SOURCE_ERROR,
         [](Target& to, void* into, zip_uint64_t size) {
             return zip_error_to_data(to.problem_.get(), into, size);
         }},
        {ZIP_SOURCE_BEGIN_WRITE, nothing<Target>},
        {ZIP_SOURCE_COMMIT_WRITE, nothing<Target>},
        {ZIP_SOURCE_ROLLBACK_WRITE, nothing<Target>},
        {ZIP_SOURCE_REMOVE, nothing<Target>},
        {ZIP_SOURCE_FREE, nothing<Target>},
        {ZIP_SOURCE_OPEN, nothing<Target>},
        {ZIP_SOURCE_READ, nothing<Target>},
        {ZIP_SOURCE_CLOSE, nothing<Target>},
        {ZIP_SOURCE_SEEK, nothing<Target>},
        {ZIP_SOURCE_TELL, nothing<Target>},
    }};
    return runCommand(commands, *static_cast<Target*>(self), data, length, command);
}

zip_int64_t ZipTarget::write(const void* data, zip_uint64_t length)
{
    const qint64 written = file_.write(static_cast<const char*>(data), static_cast<qint64>(length));
    return written == static_cast<qint64>(length) ? written : fail(ZIP_ER_WRITE, EIO);
}

zip_int64_t ZipTarget::seek(void* data, zip_uint64_t length)
{
    const zip_int64_t place =
        zip_source_seek_compute_offset(static_cast<zip_uint64_t>(file_.pos()),
                                       static_cast<zip_uint64_t>(file_.size()), data, length, problem_.get());
    if (place < 0)
        return -1;
    return file_.seek(place) ? 0 : fail(ZIP_ER_SEEK, EIO);
}

zip_int64_t ZipTarget::fail(int code, int systemCode)
{
    problem_.set(code, systemCode);
    return -1;
}

} // namespace ledra
