#include "pairs.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace zel::bench {

namespace {

struct Taken {
    double seconds = 0, processor = 0;
};

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

Taken timeOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    const double processor = processorSeconds();
    work();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
            processorSeconds() - processor};
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
    std::vector<double> oursSeconds, theirsSeconds, ratios, processorRatios;
    for (auto iteration : state) {
        (void)iteration;
        const bool oursFirst = ratios.size() % 2 == 0;
        Taken mine = oursFirst ? timeOf(ours) : Taken();
        const Taken raw = timeOf(theirs);
        if (!oursFirst)
            mine = timeOf(ours);
        oursSeconds.push_back(mine.seconds);
        theirsSeconds.push_back(raw.seconds);
        ratios.push_back(mine.seconds / raw.seconds);
        processorRatios.push_back(mine.processor / raw.processor);
        state.SetIterationTime(mine.seconds);
    }
    state.counters["ours_ms"] = median(oursSeconds) * 1000;
    state.counters["theirs_ms"] = median(theirsSeconds) * 1000;
    state.counters["ratio"] = median(ratios);
    state.counters["cpu_ratio"] = median(processorRatios);
}

void addPairs(const std::string& name, const std::function<void(benchmark::State&)>& body) {
    benchmark::RegisterBenchmark(name.c_str(), body)
        ->Iterations(pairCount)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void Steps::time(const std::string& name, const std::function<void()>& step) {
    const Taken taken = timeOf(step);
    seconds_[name + "_ms"].push_back(taken.seconds);
    seconds_[name + "_cpu_ms"].push_back(taken.processor);
}

void Steps::report(benchmark::State& state) const {
    for (const auto& [name, seconds] : seconds_)
        state.counters[name] = median(seconds) * 1000;
}

void addSteps(const std::string& name, const std::function<void(benchmark::State&)>& body) {
    benchmark::RegisterBenchmark(name.c_str(), body)->Iterations(stepCount)->Unit(benchmark::kMillisecond);
}

} // namespace zel::bench
