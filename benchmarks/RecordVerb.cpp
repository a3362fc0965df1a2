#include <map>
#include <unordered_map>

#include <Magnum/Math/Vector3.h>

#include "BenchProject.h"
#include "Data/ProjectListener.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr double CountLimit = 1.1;
constexpr double SizeLimit = 0.4;
constexpr double RatioLimit = 4.0;

// A project and the paths of all its translations.
struct Opened {
    explicit Opened(std::size_t size):
        project{projectOptions(size)}, session{project.open()}, paths{spreadPaths(*session, size)} {
        for(std::string& path: paths) path += "/translation";
    }

    BenchProject project;
    std::unique_ptr<ProjectSession> session;
    std::vector<std::string> paths;
};

// So far apart that neighbours in time are no neighbours in the document.
std::size_t spread(std::size_t change, std::size_t count) { return change * 7919 % count; }

// Seconds of as many changes in a log of their own, that is heard of as the session's is.
double recordSeconds(Opened& opened, std::size_t count) {
    ProjectSession& session = *opened.session;
    double seconds;
    {
        ChangeManager changes{session.data().project()};
        ProjectListener listener{session.data(), session.compiler(), session.resourceCompiler()};
        listener.registerWith(changes);
        changes.compileListeners();
        seconds = secondsOf([&] {
            for(std::size_t i = 0; i != count; ++i) {
                const std::string& path = opened.paths[spread(i, opened.paths.size())];
                changes.recordVector3({path.data(), path.size()}, {float(i), 0.5f, -1.0f}, false);
            }
        });
    }
    session.update();
    return seconds;
}

// What a change takes at least, with an index from the path to the value.
class BareLog {
public:
    explicit BareLog(Opened& opened): _allocator{opened.session->data().project().allocator()} {
        for(const std::string& path: opened.paths)
            _values[path] = opened.session->data().project().valueByPointer({path.data(), path.size()});
    }

    double recordSeconds(const std::vector<std::string>& paths, std::size_t count) {
        std::vector<Record> records;
        return secondsOf([&] {
            for(std::size_t i = 0; i != count; ++i)
                record(records, paths[spread(i, paths.size())], {float(i), 0.5f, -1.0f});
        });
    }

private:
    struct Record {
        std::string path;
        JsonValue oldValue, newValue;
    };

    void record(std::vector<Record>& records, const std::string& path, const Vector3& vector) {
        JsonValue& value = *_values.find(path)->second;
        JsonValue array{rapidjson::kArrayType};
        array.Reserve(3, _allocator);
        for(std::size_t i = 0; i != 3; ++i) array.PushBack(double(vector[i]), _allocator);
        Record record{path, JsonValue{value, _allocator}, std::move(array)};
        value.CopyFrom(record.newValue, _allocator);
        records.push_back(std::move(record));
    }

    JsonAllocator& _allocator;
    std::unordered_map<std::string, JsonValue*> _values;
};

}

void record(std::size_t size, std::size_t count, const Budget& budget) {
    const std::vector<std::size_t> sizes = sizesUpTo(size);
    std::map<std::size_t, Opened> opened;
    for(const std::size_t each: sizes) opened.try_emplace(each, each);
    Opened& largest = opened.at(sizes.back());

    const std::vector<std::size_t> counts{
        std::max<std::size_t>(count / 20, 1), std::max<std::size_t>(count / 4, 2), std::max<std::size_t>(count, 3)};
    printGrowth("record", "changes",
        measureGrowth(
            counts, [&](std::size_t each) { return recordSeconds(largest, each); }, budget),
        CountLimit);
    printGrowth("record", "objects",
        measureGrowth(
            sizes, [&](std::size_t each) { return recordSeconds(opened.at(each), counts[1]); }, budget),
        SizeLimit);

    BareLog bare{largest};
    const Result result = measureTimedPairs(
        "record", "beside_bare_log", [&] { return recordSeconds(largest, counts.back()); },
        [&] { return bare.recordSeconds(largest.paths, counts.back()); }, budget);
    print(result);
    printLine(limitLine("record", "beside_bare_log", "ratio", result.ratio, RatioLimit));
}

}
