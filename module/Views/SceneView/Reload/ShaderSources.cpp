#include "Views/SceneView/Reload/ShaderSources.h"

#include <Vantrel/EngineData/ResourceManager.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Bytes. No shader comes near it.
constexpr std::size_t MaxSourceSize = 16 << 20;

}

std::string definesOf(const std::vector<std::string>& features) {
    std::string preamble;
    for(const std::string& feature: features) preamble += "#define " + feature + "\n";
    return preamble;
}

std::string shaderSource(const ResourceManager& files, const FileLink& link) {
    std::string reason;
    const std::optional<Containers::Array<char>> source = files.read(link, MaxSourceSize, reason);
    return source ? std::string{source->data(), source->size()} : std::string{};
}

} // namespace VantrelEngine
