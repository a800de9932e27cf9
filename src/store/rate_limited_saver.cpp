#include "store/rate_limited_saver.h"

namespace ledra {

RateLimitedSaver::RateLimitedSaver(std::function<void()> save, std::chrono::milliseconds quiet,
                                   std::chrono::milliseconds longest)
    : save_(std::move(save))
{
    quiet_.setInterval(quiet);
    longest_.setInterval(longest);
    for (QTimer* timer : {&quiet_, &longest_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &RateLimitedSaver::flush);
    }
}

RateLimitedSaver::~RateLimitedSaver()
{
    flush();
}

void RateLimitedSaver::schedule()
{
    quiet_.start();
    if (!longest_.isActive())
        longest_.start();
}

void RateLimitedSaver::flush()
{
    // Either timer may be the one that has just run out.
    if (!quiet_.isActive() && !longest_.isActive())
        return;
    quiet_.stop();
    longest_.stop();
    save_();
}

} // namespace ledra
