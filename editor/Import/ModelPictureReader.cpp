#include "Import/ModelPictureReader.h"

#include <cstdint>

#include <VantrelHost/ModelPicture.h>

#include "Import/ImportJob.h"
#include "Import/ImportedScene.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Less than for an import: nobody asked for it.
constexpr ImportLimits Limits{20, std::uint64_t{2} << 30};

std::vector<Color4ub> pictureOf(
    const std::string& path, const std::string& converter, Int edge, const std::atomic<bool>& isGivenUp) {
    ImportJob job{converter, path, Limits};
    while(job.update() == ImportJob::State::Running && !isGivenUp) job.wait();
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
