// Two pieces of work measured side by side: rounds in turn, and the median of each, so that what else the machine does
// falls on both alike.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace Velmar::Bench {

inline constexpr int kRounds = 9;

template <typename Work>
double SecondsOf(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// Runs both in turn, after one round each that does not count, and prints one line of the table that bench/run.rb
/// gathers: name, seconds of the reference, seconds of ours, speed of ours over that of the reference, the goal.
template <typename Reference, typename Ours>
void Compare(const char* name, double goal, const Reference& reference, const Ours& ours) {
    std::vector<double> reference_seconds, our_seconds;
    for (int round = 0; round <= kRounds; ++round) {
        const double reference_time = SecondsOf(reference);
        const double our_time = SecondsOf(ours);
        if (round == 0) continue;
        reference_seconds.push_back(reference_time);
        our_seconds.push_back(our_time);
    }
    const double a = Median(reference_seconds), b = Median(our_seconds);
    std::printf("%s\t%.6f\t%.6f\t%.3f\t%.3f\n", name, a, b, a / b, goal);
    std::fflush(stdout);
}

}  // namespace Velmar::Bench
