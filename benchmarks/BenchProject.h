#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/Types.h>

#include "Data/ProjectSession.h"
#include "Project/Generator.h"

namespace VantrelBench {

// The sizes between which an exponent is measured: 1,000, 10,000 and the largest one, or parts of a small one.
std::vector<std::size_t> sizesUpTo(std::size_t largest);

// A generated project in a file that goes when this goes, or the program. Ends the program with one line where it cannot
// be written.
class BenchProject {
public:
    explicit BenchProject(const VantrelTools::GeneratorOptions& options);
    explicit BenchProject(const VantrelEngine::JsonValue& project);
    BenchProject(const BenchProject&) = delete;
    BenchProject& operator=(const BenchProject&) = delete;

    const std::string& path() const { return _path; }

    // Ends the program with one line where the project is refused.
    std::unique_ptr<VantrelEngine::ProjectSession> open() const;

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, Close> _file;
    std::string _path;
};

VantrelTools::GeneratorOptions projectOptions(
    std::size_t count, VantrelTools::Topology topology = VantrelTools::Topology::Tree);

// "/objects/ID" of so many objects, spread evenly over the document. At most as many as there are.
std::vector<std::string> spreadPaths(VantrelEngine::ProjectSession& session, std::size_t count);

// Document as JSON text, without checks.
std::string textOf(VantrelEngine::ProjectSession& session);

// Bytes that the program has allocated.
std::size_t allocatedBytes();

// Where an object is dragged to in a frame.
Magnum::Matrix4 draggedTo(std::size_t object, std::size_t frame);

// One frame of a gesture: every object gets another place, listeners hear of it, and what changed is compiled.
void dragFrame(VantrelEngine::ProjectSession& session, const std::vector<std::string>& paths, std::uint64_t key,
    std::size_t frame);

}
