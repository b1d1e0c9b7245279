#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zel::bench {

/// Pairs of one benchmark: the median of fewer says little on a machine that others use.
inline constexpr int pairCount = 9;

/// Runs the two in alternating order, `pairCount` times, after one run of each that does not count. The counters tell
/// the medians in milliseconds and the median of the ratios of the pairs, ours to theirs: of the time that went by, and
/// of this process's own time on the processor, which others on the machine do not disturb.
void runPairs(benchmark::State& state, const std::function<void()>& ours, const std::function<void()>& theirs);

/// The limit that the ratio is to keep stands in the name, so that a reader of the output sees both.
void addPairs(const std::string& name, const std::function<void(benchmark::State&)>& body);

/// Steps of one work that have no rival: the median of each is reported in milliseconds under its name, of the time
/// that went by and of this process's own.
class Steps {
public:
    void time(const std::string& name, const std::function<void()>& step);
    void report(benchmark::State& state) const;

private:
    std::map<std::string, std::vector<double>> seconds_;
};

/// A benchmark that goes through its steps `stepCount` times.
inline constexpr int stepCount = 7;
void addSteps(const std::string& name, const std::function<void(benchmark::State&)>& body);

} // namespace zel::bench
