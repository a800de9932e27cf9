#include "platform/descriptor.h"

#include "platform/folder_tree.h"

#include <unistd.h>

#include <cerrno>

namespace ledra {

Descriptor::~Descriptor()
{
    if (isOpen())
        ::close(number_);
}

bool Descriptor::sync() const
{
    errno = syncDescriptor(number_);
    return errno == 0;
}

bool Descriptor::writeAll(QByteArrayView content) const
{
    qsizetype written = 0;
    while (written < content.size()) {
        const ssize_t count =
            ::write(number_, content.data() + written, static_cast<std::size_t>(content.size() - written));
        if (count < 0 && errno != EINTR)
            return false;
        written += count > 0 ? count : 0;
    }
    return true;
}

} // namespace ledra
