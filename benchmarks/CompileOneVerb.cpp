#include <map>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double Limit = 0.3;
constexpr std::size_t Runs = 200;

struct Opened {
    explicit Opened(std::size_t size):
        project{projectOptions(size)}, session{project.open()}, paths{spreadPaths(*session, Runs)} {}

    BenchProject project;
    std::unique_ptr<ProjectSession> session;
    std::vector<std::string> paths;
    float value = 0.0f;
};

// Seconds of one edit of one object and its compilation.
double compileSeconds(Opened& opened, const char* key, const JsonValue& value) {
    std::vector<std::string> paths;
    for(const std::string& path: opened.paths) paths.push_back(path + key);
    const double seconds = secondsOf([&] {
        for(const std::string& path: paths) {
            opened.session->changes().recordChange({path.data(), path.size()}, &value, false);
            opened.session->update();
        }
    });
    return seconds / double(paths.size());
}

}

void compileOne(std::size_t count, const Budget& budget) {
    const std::vector<std::size_t> sizes = sizesUpTo(count);
    std::map<std::size_t, Opened> opened;
    for(const std::size_t size: sizes) opened.try_emplace(size, size);
    JsonDocument values;
    JsonValue place{rapidjson::kArrayType};
    for(const double number: {1.0, 2.0, 3.0}) place.PushBack(number, values.GetAllocator());
    JsonValue components{rapidjson::kArrayType};
    JsonValue component{rapidjson::kObjectType}, input{rapidjson::kObjectType};
    input.AddMember("type", "mouse", values.GetAllocator());
    component.AddMember("type", "input", values.GetAllocator());
    component.AddMember("active", true, values.GetAllocator());
    component.AddMember("input", input, values.GetAllocator());
    components.PushBack(component, values.GetAllocator());
    const auto measured = [&](const char* key, const JsonValue& value) {
        return measureGrowth(
            sizes, [&](std::size_t size) { return compileSeconds(opened.at(size), key, value); }, budget);
    };
    printGrowth("compile_one", "translation", measured("/translation", place), Limit);
    printGrowth("compile_one", "components", measured("/components", components), Limit);
}

}
