#pragma once

#include <string>
#include <vector>

// Each verb prints a line of JSON for each of its cases.
namespace VantrelBench {

// Transformations of many points, beside plain loops over floats.
void math();

// String search and split, formatting and array growth, beside the C and C++ standard libraries.
void containers();

// Runs this program and another vantrel-bench in turn with the same verb and prints how their figures compare. program
// is the path of this one. Returns the exit status.
int against(const std::string& program, const std::string& other, const std::vector<std::string>& arguments);

}
