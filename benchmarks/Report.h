#pragma once

#include <cstddef>
#include <string>

#include "Measure.h"

// The lines that verbs print: JSON objects, one a case.
namespace VantrelBench {

void print(const Result& result);

std::string timeLine(const std::string& verb, const std::string& name, double seconds);
// A figure that is asked to be at most so much, and whether it is: quantity names it, such as "exponent".
std::string limitLine(
    const std::string& verb, const std::string& name, const std::string& quantity, double value, double limit);
// A number that has to be exactly another one.
std::string exactLine(
    const std::string& verb, const std::string& name, const std::string& quantity, long long count, long long wanted);

void printLine(const std::string& line);

// The time at each size, and the exponent with its limit.
void printGrowth(const std::string& verb, const std::string& name, const Growth& growth, double limit);

}
