#include <algorithm>
#include <map>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double SizeLimit = 0.4;
constexpr double CountLimit = 1.15;

GeneratorOptions namedByNumber(std::size_t count, Topology topology) {
    GeneratorOptions options = projectOptions(count, topology);
    // The parent of an object has a lower number than the object.
    options.ids = IdStyle::Short;
    return options;
}

struct Seconds {
    double record, update;
};

// A project in which objects of the second half are moved, one by one, below objects from the middle of the first half:
// each time another one, and in a chain a deep one.
class Opened {
public:
    explicit Opened(std::size_t size, Topology topology):
        _project{namedByNumber(size, topology)}, _session{_project.open()}, _size{size} {}

    // Leaves the objects where they were.
    Seconds move(std::size_t count) {
        // Drops what could be redone from the run before, which may be much more than what is moved now.
        moveAndBack(1);
        return moveAndBack(count);
    }

private:
    struct Move {
        std::string path, parent;
    };

    Seconds moveAndBack(std::size_t count) {
        const std::vector<Move> moves = movesOf(count);
        Seconds seconds;
        seconds.record = secondsOf([&] {
            _session->changes().beginGroup();
            for(const Move& move: moves)
                _session->changes().recordString(
                    {move.path.data(), move.path.size()}, {move.parent.data(), move.parent.size()}, false);
            _session->changes().commit();
        });
        seconds.update = secondsOf([&] { _session->update(); });
        _session->changes().undoLast();
        _session->update();
        return seconds;
    }

    std::vector<Move> movesOf(std::size_t count) const {
        // Prime, so that neighbours in time are none in the tree.
        constexpr std::size_t Stride = 7919;
        const std::size_t half = _size / 2, quarter = _size / 4;
        std::vector<Move> moves;
        for(std::size_t i = 0; i != count; ++i)
            moves.push_back({"/objects/o" + std::to_string(half + i * (_size - half) / count) + "/parent",
                "o" + std::to_string(quarter + i * Stride % quarter)});
        return moves;
    }

    BenchProject _project;
    std::unique_ptr<ProjectSession> _session;
    std::size_t _size;
};

void reparent(std::size_t size, std::size_t count, Topology topology, const std::string& name, const Budget& budget) {
    const std::vector<std::size_t> sizes = sizesUpTo(size);
    // Of the smallest project all of the second half, at most.
    const std::size_t fewest = std::min(count, sizes.front() / 2);
    std::map<std::size_t, Opened> opened;
    for(const std::size_t each: sizes) opened.try_emplace(each, each, topology);
    std::vector<double> updates;
    printGrowth("reparent", name + "_objects",
        measureGrowth(
            sizes,
            [&](std::size_t each) {
                const Seconds seconds = opened.at(each).move(fewest);
                if(each == size) updates.push_back(seconds.update);
                return seconds.record / double(fewest);
            },
            budget),
        SizeLimit);
    printLine(timeLine("reparent", name + "_update", median(updates)));

    count = std::max<std::size_t>(std::min(count, size / 2), 2);
    printGrowth("reparent", name + "_moved",
        measureGrowth(
            {1, std::max<std::size_t>(count / 10, 2), std::max<std::size_t>(count, 3)},
            [&](std::size_t each) { return opened.at(size).move(each).record; }, budget),
        CountLimit);
}

}

void reparent(std::size_t size, std::size_t count, const Budget& budget) {
    reparent(size, count, Topology::Chain, "chain", budget);
    reparent(size, count, Topology::Random, "random", budget);
}

}
