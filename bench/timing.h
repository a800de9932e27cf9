#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace ledra::bench {

template <class Work>
double secondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// A program that does not do the work measures nothing: it ends.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "benchmark: %s\n", what);
    std::exit(EXIT_FAILURE);
}

/// One figure for bench/run.
inline void say(const char* name, double value)
{
    std::printf("%s %.6f\n", name, value);
    std::fflush(stdout);
}

} // namespace ledra::bench
