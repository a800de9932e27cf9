#include "platform/interprocess_lock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace ledra {

InterprocessLock::Guard InterprocessLock::hold()
{
    if (Guard held = held_.lock())
        return held;
    QDir().mkpath(QFileInfo(file_).path());
    const int descriptor = ::open(QFile::encodeName(file_).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    while (descriptor >= 0 && ::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
    Guard guard(static_cast<void*>(this), [descriptor](void*) {
        if (descriptor >= 0)
            ::close(descriptor); // lets go of the lock as well
    });
    held_ = guard;
    return guard;
}

} // namespace ledra
