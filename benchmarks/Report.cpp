#include "Report.h"

#include <cstdio>

namespace VantrelBench {

namespace {

std::string number(double value) {
    char buffer[32];
    std::snprintf(buffer, sizeof(buffer), "%.6g", value);
    return buffer;
}

std::string begin(const std::string& verb, const std::string& name) {
    return "{\"verb\":\"" + verb + "\",\"case\":\"" + name + "\",";
}

std::string judged(const std::string& quantity, const std::string& value, const std::string& wantedName,
    const std::string& wanted, bool holds) {
    return '"' + quantity + "\":" + value + ",\"" + wantedName + "\":" + wanted +
        ",\"holds\":" + (holds ? "true}" : "false}");
}

}

std::string timeLine(const std::string& verb, const std::string& name, double seconds) {
    return begin(verb, name) + "\"figure_ns\":" + number(seconds * 1e9) + "}";
}

std::string limitLine(
    const std::string& verb, const std::string& name, const std::string& quantity, double value, double limit) {
    return begin(verb, name) + judged(quantity, number(value), "limit", number(limit), value <= limit);
}

std::string exactLine(
    const std::string& verb, const std::string& name, const std::string& quantity, long long count, long long wanted) {
    return begin(verb, name) +
        judged(quantity, std::to_string(count), "wanted", std::to_string(wanted), count == wanted);
}

void printLine(const std::string& line) {
    std::puts(line.data());
    std::fflush(stdout);
}

void print(const Result& result) { printLine(toJson(result)); }

void printGrowth(const std::string& verb, const std::string& name, const Growth& growth, double limit) {
    for(std::size_t i = 0; i != growth.sizes.size(); ++i)
        printLine(timeLine(verb, name + "_" + std::to_string((long long)(growth.sizes[i])), growth.seconds[i]));
    printLine(limitLine(verb, name, "exponent", growth.exponent, limit));
}

}
