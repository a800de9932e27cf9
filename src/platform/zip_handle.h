#pragma once

#include <QString>

#include <zip.h>

#include <memory>

namespace ledra {

/// Closes an archive without writing anything.
struct ZipDiscard
{
    void operator()(zip_t* zip) const { zip_discard(zip); }
};

using ZipHandle = std::unique_ptr<zip_t, ZipDiscard>;

/// An error of the library, with its text.
class ZipProblem
{
public:
    ZipProblem() { zip_error_init(&error_); }
    ~ZipProblem() { zip_error_fini(&error_); }
    ZipProblem(const ZipProblem&) = delete;
    ZipProblem& operator=(const ZipProblem&) = delete;

    zip_error_t* get() { return &error_; }
    int code() const { return zip_error_code_zip(&error_); }

    /// Says that the system failed to do something.
    void set(int code, int systemCode) { zip_error_set(&error_, code, systemCode); }

    QString text() { return QString::fromLocal8Bit(zip_error_strerror(&error_)); }

private:
    zip_error_t error_{};
};

} // namespace ledra
