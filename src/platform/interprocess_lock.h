#pragma once

#include <QString>

#include <memory>

namespace ledra {

/// A lock between the processes of one user that write the same files. A process that ends, however it ends,
/// lets go of it. The same process may take it again while it holds it.
class InterprocessLock
{
public:
    /// @param file the lock's file, made when it is missing, its folder too
    explicit InterprocessLock(QString file) : file_(std::move(file)) {}
    InterprocessLock(const InterprocessLock&) = delete;
    InterprocessLock& operator=(const InterprocessLock&) = delete;

    using Guard = std::shared_ptr<void>;

    /// Waits until no other process holds the lock, and holds it until the last guard goes. Where the file
    /// system has no locks, or the file cannot be made, work goes on without: saving is still guarded by
    /// comparing contents.
    [[nodiscard]] Guard hold();

private:
    QString file_;
    std::weak_ptr<void> held_;
};

} // namespace ledra
