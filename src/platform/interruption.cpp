#include "platform/interruption.h"

#include <sys/signalfd.h>
#include <unistd.h>

namespace ledra {

Interruption::Interruption()
{
    sigset_t taken{};
    sigemptyset(&taken);
    sigaddset(&taken, SIGINT);
    sigaddset(&taken, SIGTERM);
    descriptor_ = ::signalfd(-1, &taken, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ < 0) // then the signals do what they always do
        return;
    ::pthread_sigmask(SIG_BLOCK, &taken, &before_);
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info{};
        if (::read(descriptor_, &info, sizeof(info)) == sizeof(info))
            Q_EMIT requested();
    });
}

Interruption::~Interruption()
{
    if (descriptor_ < 0)
        return;
    notifier_.reset();
    ::close(descriptor_);
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

} // namespace ledra
