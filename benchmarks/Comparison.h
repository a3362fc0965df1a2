#pragma once

#include <map>
#include <string>
#include <vector>

namespace VantrelBench {

// The figures of a run's output, by case: each line that toJson() wrote. Other lines are passed over.
std::map<std::string, double> figuresOf(const std::string& output);

struct Comparison {
    std::string name;
    double figure, other; // medians over the runs, nanoseconds
    double ratio;         // median of the ratios run by run
};

// Two programs' runs in pairs: ours[i] ran beside others[i]. Cases that not every run has are left out.
std::vector<Comparison> compare(
    const std::vector<std::map<std::string, double>>& ours, const std::vector<std::map<std::string, double>>& others);

}
