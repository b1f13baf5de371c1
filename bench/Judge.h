#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>

// Times and bounds of the benchmarks that do not use Google Benchmark.

template <typename Work>
double Milliseconds(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// The shortest time of some rounds, because other programs on the machine can only add time.
template <typename Work>
double Best(Work work, int rounds = 5) {
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        best = std::min(best, Milliseconds(work));
    }
    return best;
}

// Prints the figure and whether it is within the limit; returns the latter.
inline bool Judge(const char* what, double figure, double limit) {
    const bool isMet = figure <= limit;
    std::printf("%-6s %-58s %10.3f (at most %.3f)\n", isMet ? "passed" : "MISSED", what, figure, limit);
    return isMet;
}
