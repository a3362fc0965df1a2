#include "Import/ModelPictureReader.h"

#include <cstdint>
#include <filesystem>

#include <VantrelHost/ModelPicture.h>

#include "Import/ImportJob.h"
#include "Import/ImportedScene.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Less than for an import: nobody asked for it.
constexpr ImportLimits Limits{20, std::uint64_t{2} << 30};

// The mesh of a file as a project has it, without anything around it: there is no object to import.
std::vector<Color4ub> pictureOfMesh(const std::string& path, Int edge, const std::atomic<bool>& isGivenUp) {
    const std::filesystem::path file{path};
    JsonDocument sections;
    sections.Parse(R"({"meshes": {"mesh": {}},
        "objects": {"mesh": {"components": [{"type": "mesh", "mesh": {"mesh": "mesh"}}]}}})");
    const std::string name = file.filename().string();
    sections["meshes"]["mesh"].AddMember(
        "file", JsonValue{name.data(), unsigned(name.size()), sections.GetAllocator()}, sections.GetAllocator());
    return drawModelPicture(sections, file.parent_path().string(), edge, isGivenUp);
}

std::vector<Color4ub> pictureOf(
    const std::string& path, const std::string& converter, Int edge, const std::atomic<bool>& isGivenUp) {
    ImportJob job{converter, path, Limits};
    while(job.update() == ImportJob::State::Running && !isGivenUp) job.wait();
    if(job.update() == ImportJob::State::Failed) return pictureOfMesh(path, edge, isGivenUp);
    ImportedScene scene;
    if(job.update() != ImportJob::State::Done || !readImportedScene(job.folder(), scene).empty()) return {};
    return drawModelPicture(scene.document, scene.folder, edge, isGivenUp);
}

} // namespace

std::vector<Color4ub> ModelPictureReader::operator()(
    const std::string& path, Int edge, const std::atomic<bool>& isGivenUp) const {
    const std::uint64_t content = modelContent(path);
    if(!content) return {};
    std::vector<Color4ub> pixels = readKeptPicture(folder, content, edge);
    if(!pixels.empty()) return pixels;
    pixels = pictureOf(path, converter, edge, isGivenUp);
    if(!pixels.empty()) keepPicture(folder, content, edge, pixels);
    return pixels;
}

} // namespace VantrelEngine
