#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace zel::bench {

/// Pairs of one benchmark: the median of fewer says little on a machine that others use.
inline constexpr int pairCount = 9;

/// Runs the two in alternating order, `pairCount` times, after one run of each that does not count. The counters tell
/// the medians in milliseconds and the median of the ratios of the pairs, ours to theirs.
void runPairs(benchmark::State& state, const std::function<void()>& ours, const std::function<void()>& theirs);

/// The limit that the ratio is to keep stands in the name, so that a reader of the output sees both.
void addPairs(const std::string& name, const std::function<void(benchmark::State&)>& body);

} // namespace zel::bench
