#pragma once

#include <algorithm>
#include <cstddef>
#include <thread>
#include <vector>

namespace ledra {

/// How many parts inParallelParts() makes of some work: one for each core, and one where the work is small.
inline std::size_t parallelParts(std::size_t size)
{
    constexpr std::size_t smallest = 4096; // starting a thread takes as long
    return std::clamp<std::size_t>(size / smallest, 1, std::max(1U, std::thread::hardware_concurrency()));
}

/// Calls work(part, first, last) for parts that together go from 0 to before `size`, at the same time, and
/// returns when all are done.
template <class Work>
void inParallelParts(std::size_t size, const Work& work)
{
    const std::size_t parts = parallelParts(size);
    std::vector<std::jthread> threads;
    for (std::size_t part = 1; part < parts; ++part)
        threads.emplace_back([&, part] { work(part, size * part / parts, size * (part + 1) / parts); });
    work(std::size_t{0}, std::size_t{0}, size / parts);
}

} // namespace ledra
