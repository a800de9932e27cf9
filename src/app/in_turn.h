#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <vector>

namespace ledra {

/// Lets jobs that finish in any order speak in the order of their turns, which count from 0. What a job says
/// waits until all jobs before it are done.
class InTurn
{
public:
    /// Runs `telling` as soon as it is the turn of its job.
    void tell(std::size_t turn, std::function<void()> telling);

    /// The job says nothing more.
    void done(std::size_t turn);

    /// Whatever still waits has its say, in order.
    void tellAll();

private:
    struct Waiting
    {
        std::vector<std::function<void()>> tellings;
        bool isDone = false;
    };

    static void release(Waiting& waiting);

    std::map<std::size_t, Waiting> waiting_;
    std::size_t current_ = 0;
};

} // namespace ledra
