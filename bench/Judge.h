#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>

// Time and bounds of the benchmarks that have no library to run them.

template <typename Work>
double Milliseconds(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// The shortest time of some rounds: other programs on the machine only ever add time.
template <typename Work>
double Best(Work work, int rounds = 5) {
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        best = std::min(best, Milliseconds(work));
    }
    return best;
}

// Prints the figure and whether it is within its limit.
inline bool Judge(const char* what, double figure, double limit) {
    const bool isMet = figure <= limit;
    std::printf("%-6s %-58s %10.3f (at most %.3f)\n", isMet ? "passed" : "MISSED", what, figure, limit);
    return isMet;
}
