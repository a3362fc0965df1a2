#include "Measure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>

namespace VantrelBench {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

// Of this thread: what others get of the processor meanwhile does not count.
double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

double timeOf(const std::function<void()>& work, long repeats) {
    const double start = processorSeconds();
    for(long i = 0; i != repeats; ++i) work();
    return (processorSeconds() - start) / double(repeats);
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

double secondsOf(const std::function<void()>& work) { return timeOf(work, 1); }

Result measurePairs(std::string verb, std::string name, const std::function<void()>& figure,
    const std::function<void()>& floor, const Budget& budget) {
    const Clock::time_point start = Clock::now();
    const long figureRepeats = calibrate(figure, budget.sampleSeconds);
    const long floorRepeats = calibrate(floor, budget.sampleSeconds);
    Budget rest = budget;
    rest.seconds -= secondsSince(start);
    return measureTimedPairs(
        std::move(verb), std::move(name), [&] { return timeOf(figure, figureRepeats); },
        [&] { return timeOf(floor, floorRepeats); }, rest);
}

Result measureTimedPairs(std::string verb, std::string name, const std::function<double()>& figure,
    const std::function<double()>& floor, const Budget& budget) {
    const Clock::time_point start = Clock::now();
    std::vector<double> figures, floors, ratios;
    while(int(ratios.size()) < budget.minimumPairs || secondsSince(start) < budget.seconds) {
        double figureTime, floorTime;
        if(ratios.size() % 2) {
            floorTime = floor();
            figureTime = figure();
        } else {
            figureTime = figure();
            floorTime = floor();
        }
        figures.push_back(figureTime * 1e9);
        floors.push_back(floorTime * 1e9);
        ratios.push_back(figureTime / floorTime);
    }
    const int pairs = int(ratios.size());
    return {std::move(verb), std::move(name), median(std::move(figures)), median(std::move(floors)),
        median(std::move(ratios)), pairs};
}

double medianSeconds(const std::function<double()>& run, const Budget& budget) {
    const Clock::time_point start = Clock::now();
    std::vector<double> times;
    while(int(times.size()) < budget.minimumPairs || secondsSince(start) < budget.seconds) times.push_back(run());
    return median(std::move(times));
}

Line lineThrough(const std::vector<double>& x, const std::vector<double>& y) {
    double meanX = 0.0, meanY = 0.0, xx = 0.0, xy = 0.0;
    for(std::size_t i = 0; i != x.size(); ++i) {
        meanX += x[i] / double(x.size());
        meanY += y[i] / double(x.size());
    }
    for(std::size_t i = 0; i != x.size(); ++i) {
        xx += (x[i] - meanX) * (x[i] - meanX);
        xy += (x[i] - meanX) * (y[i] - meanY);
    }
    return {meanY - xy / xx * meanX, xy / xx};
}

double exponentOf(const std::vector<double>& sizes, const std::vector<double>& times) {
    std::vector<double> x, y;
    for(const double size: sizes) x.push_back(std::log(size));
    for(const double time: times) y.push_back(std::log(time));
    return lineThrough(x, y).slope;
}

Growth measureGrowth(
    const std::vector<std::size_t>& sizes, const std::function<double(std::size_t)>& run, const Budget& budget) {
    const Clock::time_point start = Clock::now();
    std::vector<std::vector<double>> times(sizes.size());
    for(int round = 0; round < budget.minimumPairs || secondsSince(start) < budget.seconds; ++round)
        for(std::size_t i = 0; i != sizes.size(); ++i) times[i].push_back(run(sizes[i]));
    Growth growth;
    for(std::size_t i = 0; i != sizes.size(); ++i) {
        growth.sizes.push_back(double(sizes[i]));
        growth.seconds.push_back(median(std::move(times[i])));
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    return growth;
}

}
