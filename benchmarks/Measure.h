#pragma once

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

// Runs figure and floor in turn, a sample of one beside a sample of the other, so that a machine that gets slower or
// faster meanwhile does so for both. The order within a pair alternates. Both must do the same work and keep its result
// observable (see keep()).
Result measurePairs(std::string verb, std::string name, const std::function<void()>& figure,
    const std::function<void()>& floor, const Budget& budget = {});

// Makes the compiler believe that the value is read and that memory changed.
template<class T> inline void keep(const T& value) { asm volatile("" : : "g"(&value) : "memory"); }

}
