#include "Comparison.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "Measure.h"

namespace VantrelBench {

namespace {

bool allHave(const std::vector<std::map<std::string, double>>& runs, const std::string& name) {
    return std::all_of(runs.begin(), runs.end(), [&](const auto& run) { return run.count(name); });
}

}

std::map<std::string, double> figuresOf(const std::string& output) {
    static const std::regex pattern{R"re("case":"([^"]*)","figure_ns":([^,}]*))re"};
    std::map<std::string, double> figures;
    std::istringstream lines{output};
    for(std::string line; std::getline(lines, line);) {
        std::smatch match;
        if(std::regex_search(line, match, pattern)) figures[match[1]] = std::stod(match[2]);
    }
    return figures;
}

std::vector<Comparison> compare(
    const std::vector<std::map<std::string, double>>& ours, const std::vector<std::map<std::string, double>>& others) {
    std::vector<Comparison> comparisons;
    if(ours.empty() || ours.size() != others.size()) return comparisons;
    for(const auto& first: ours.front()) {
        const std::string& name = first.first;
        if(!allHave(ours, name) || !allHave(others, name)) continue;
        std::vector<double> figures, otherFigures, ratios;
        for(std::size_t i = 0; i != ours.size(); ++i) {
            figures.push_back(ours[i].at(name));
            otherFigures.push_back(others[i].at(name));
            ratios.push_back(figures.back() / otherFigures.back());
        }
        comparisons.push_back({name, median(figures), median(otherFigures), median(ratios)});
    }
    return comparisons;
}

}
