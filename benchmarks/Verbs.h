#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Measure.h"

// Each verb prints a line of JSON for each of its cases.
namespace VantrelBench {

// Transformations of many points, beside plain loops over floats.
void math();

// String search and split, formatting and array growth, beside the C and C++ standard libraries.
void containers();

// A project is generated, opened, edited. N is the number of its objects; where an exponent against N is asked for,
// 1,000 and 10,000 stand beside it. The budget is that of one measurement, of which a verb makes several. Each verb prints what it holds itself to: lines with "holds".

// Opening a project, in a fresh session and again in the same one, on every topology.
void open(std::size_t count, const Budget& budget);

// Compiling what was read, on one topology or on "all"; and beside the bare minimum on the same document.
void compile(std::size_t count, const std::string& topology, const Budget& budget);

// One object edited and compiled.
void compileOne(std::size_t count, const Budget& budget);

// Changes outside of groups; and beside a bare log.
void record(std::size_t count, std::size_t changes, const Budget& budget);

// Frames in which so many objects are dragged.
void drag(std::size_t count, std::size_t dragged, std::size_t frames, const Budget& budget);

// Undoing a drag of so many objects.
void undo(std::size_t count, std::size_t dragged, const Budget& budget);

// Deleting so many objects.
void deleteObjects(std::size_t count, std::size_t deleted, const Budget& budget);

// Absolute transformations beside a bare loop.
void transform(std::size_t count, const Budget& budget);

// Bytes an object and a change.
void memory(std::size_t count);

// Runs this program and another vantrel-bench in turn with the same verb and prints how their figures compare. program
// is the path of this one. Returns the exit status.
int against(const std::string& program, const std::string& other, const std::vector<std::string>& arguments);

}
