#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace VantrelBench {

// What one case of a verb found: a figure, the floor under it, and their ratio.
struct Result {
    std::string verb;
    std::string name;
    double figure; // nanoseconds a run
    double floor;  // nanoseconds a run
    double ratio;  // median of the ratios of single pairs; not figure / floor
    int pairs;
};

// One JSON object without line breaks.
std::string toJson(const Result& result);

// Lower median for an even count; values must not be empty.
double median(std::vector<double> values);

struct Budget {
    double seconds = 2.0;        // for one case, warm-up included
    double sampleSeconds = 2e-3; // a sample repeats its work until it takes at least this long
    int minimumPairs = 11;
};

// Times are those that the work has the processor for.
//
// Runs figure and floor in turn, a sample of one beside a sample of the other, so that a machine that gets slower or
// faster meanwhile does so for both. The order within a pair alternates. Both must do the same work and keep its result
// observable (see keep()).
Result measurePairs(std::string verb, std::string name, const std::function<void()>& figure,
    const std::function<void()>& floor, const Budget& budget = {});

// The same for work that times itself, such as work that needs something made before each run: the two return seconds.
Result measureTimedPairs(std::string verb, std::string name, const std::function<double()>& figure,
    const std::function<double()>& floor, const Budget& budget = {});

// Exponent of the power law that fits the times best: least squares over the logarithms. Expects two different sizes at
// least, and everything above zero.
double exponentOf(const std::vector<double>& sizes, const std::vector<double>& times);

// The line that fits points best, least squares: its value at zero, and how much it rises by one.
struct Line {
    double start, slope;
};
// Expects two different x at least.
Line lineThrough(const std::vector<double>& x, const std::vector<double>& y);

struct Growth {
    std::vector<double> sizes;
    std::vector<double> seconds; // median by size
    double exponent;
};

// Runs the work at each size in turn, round after round, so that a machine that gets slower or faster meanwhile does so
// for all of them. run() returns the seconds of one run. sampleSeconds of the budget is not used, minimumPairs is the
// least number of rounds.
Growth measureGrowth(
    const std::vector<std::size_t>& sizes, const std::function<double(std::size_t)>& run, const Budget& budget);

// Of runs one after the other that time themselves, for as long as the budget says.
double medianSeconds(const std::function<double()>& run, const Budget& budget);

// Of one run, on the processor.
double secondsOf(const std::function<void()>& work);

// Makes the compiler believe that the value is read and that memory changed.
template<class T> inline void keep(const T& value) { asm volatile("" : : "g"(&value) : "memory"); }

}
