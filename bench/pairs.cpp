#include "pairs.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace zel::bench {

namespace {

double secondsOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

} // namespace

void runPairs(benchmark::State& state, const std::function<void()>& ours, const std::function<void()>& theirs) {
    ours();
    theirs();
    std::vector<double> oursSeconds, theirsSeconds, ratios;
    for (auto iteration : state) {
        (void)iteration;
        const bool oursFirst = ratios.size() % 2 == 0;
        double mine = oursFirst ? secondsOf(ours) : 0.0;
        const double raw = secondsOf(theirs);
        if (!oursFirst)
            mine = secondsOf(ours);
        oursSeconds.push_back(mine);
        theirsSeconds.push_back(raw);
        ratios.push_back(mine / raw);
        state.SetIterationTime(mine);
    }
    state.counters["ours_ms"] = median(oursSeconds) * 1000;
    state.counters["theirs_ms"] = median(theirsSeconds) * 1000;
    state.counters["ratio"] = median(ratios);
}

void addPairs(const std::string& name, const std::function<void(benchmark::State&)>& body) {
    benchmark::RegisterBenchmark(name.c_str(), body)
        ->Iterations(pairCount)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace zel::bench
