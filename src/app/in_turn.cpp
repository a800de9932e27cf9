#include "app/in_turn.h"

#include <utility>

namespace ledra {

void InTurn::release(Waiting& waiting)
{
    for (const std::function<void()>& telling : std::exchange(waiting.tellings, {}))
        telling();
}

void InTurn::tell(std::size_t turn, std::function<void()> telling)
{
    if (turn <= current_)
        telling();
    else
        waiting_[turn].tellings.push_back(std::move(telling));
}

void InTurn::done(std::size_t turn)
{
    waiting_[turn].isDone = true;
    for (auto next = waiting_.find(current_); next != waiting_.end() && next->second.isDone;
         next = waiting_.find(current_)) {
        waiting_.erase(next);
        ++current_;
        if (const auto following = waiting_.find(current_); following != waiting_.end())
            release(following->second);
    }
}

void InTurn::tellAll()
{
    for (auto& [turn, waiting] : waiting_)
        release(waiting);
}

} // namespace ledra
