#include "Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace VantrelBench {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double timeOf(const std::function<void()>& work, long repeats) {
    const Clock::time_point start = Clock::now();
    for(long i = 0; i != repeats; ++i) work();
    return secondsSince(start) / double(repeats);
}

// Enough repeats for a sample of the wanted length.
long calibrate(const std::function<void()>& work, double sampleSeconds) {
    for(long repeats = 1;; repeats *= 2)
        if(timeOf(work, repeats) * double(repeats) >= sampleSeconds) return repeats;
}

}

std::string toJson(const Result& result) {
    char buffer[512];
    std::snprintf(buffer, sizeof(buffer),
        R"({"verb":"%s","case":"%s","figure_ns":%.6g,"floor_ns":%.6g,"ratio":%.4g,"pairs":%d})", result.verb.data(),
        result.name.data(), result.figure, result.floor, result.ratio, result.pairs);
    return buffer;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + std::ptrdiff_t((values.size() - 1) / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Result measurePairs(std::string verb, std::string name, const std::function<void()>& figure,
    const std::function<void()>& floor, const Budget& budget) {
    const Clock::time_point start = Clock::now();
    const long figureRepeats = calibrate(figure, budget.sampleSeconds);
    const long floorRepeats = calibrate(floor, budget.sampleSeconds);
    std::vector<double> figures, floors, ratios;
    while(int(ratios.size()) < budget.minimumPairs || secondsSince(start) < budget.seconds) {
        double figureTime, floorTime;
        if(ratios.size() % 2) {
            floorTime = timeOf(floor, floorRepeats);
            figureTime = timeOf(figure, figureRepeats);
        } else {
            figureTime = timeOf(figure, figureRepeats);
            floorTime = timeOf(floor, floorRepeats);
        }
        figures.push_back(figureTime * 1e9);
        floors.push_back(floorTime * 1e9);
        ratios.push_back(figureTime / floorTime);
    }
    const int pairs = int(ratios.size());
    return {std::move(verb), std::move(name), median(std::move(figures)), median(std::move(floors)),
        median(std::move(ratios)), pairs};
}

}
