#include <cstdio>
#include <string>

#include "Comparison.h"
#include "Verbs.h"

namespace VantrelBench {

namespace {

constexpr int Runs = 3;

std::string quoted(const std::string& argument) {
    std::string result = "'";
    for(const char c: argument) result += c == '\'' ? std::string{"'\\''"} : std::string{c};
    return result + "'";
}

// Standard output of a command; failed is set when it could not be run or did not end with 0.
std::string outputOf(const std::string& command, bool& failed) {
    std::string output;
    std::FILE* const pipe = popen(command.data(), "r");
    if(!pipe) {
        failed = true;
        return output;
    }
    char buffer[4096];
    for(std::size_t read; (read = std::fread(buffer, 1, sizeof(buffer), pipe));) output.append(buffer, read);
    if(pclose(pipe) != 0) failed = true;
    return output;
}

}

int against(const std::string& program, const std::string& other, const std::vector<std::string>& arguments) {
    std::string tail;
    for(const std::string& argument: arguments) tail += " " + quoted(argument);
    std::vector<std::map<std::string, double>> ours, others;
    bool failed = false;
    for(int i = 0; i != Runs && !failed; ++i) {
        ours.push_back(figuresOf(outputOf(quoted(program) + tail, failed)));
        others.push_back(figuresOf(outputOf(quoted(other) + tail, failed)));
    }
    if(failed) {
        std::fprintf(stderr, "vantrel-bench: '%s' failed in one of the two programs\n", tail.data());
        return 1;
    }
    for(const Comparison& comparison: compare(ours, others))
        std::printf("{\"verb\":\"against\",\"case\":\"%s\",\"figure_ns\":%.6g,\"other_ns\":%.6g,\"ratio\":%.4g}\n",
            comparison.name.data(), comparison.figure, comparison.other, comparison.ratio);
    return 0;
}

}
