#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/ResourceHandlers.h"
#include "Data/Resources/SkinFile.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

std::optional<std::vector<Matrix4>> load(
    const ResourceContext& context, const ResourceEntry& entry, const FileLink& link, std::size_t jointCount) {
    return context.load(entry, link, MaximumMeshFileSize,
        [&](Containers::ArrayView<const char> bytes, std::string& reason) -> std::optional<std::vector<Matrix4>> {
            auto matrices = readSkin(bytes, reason);
            if(!matrices || matrices->size() == jointCount) return matrices;
            reason = "there are " + std::to_string(matrices->size()) + " matrices for " + std::to_string(jointCount) +
                " joints";
            return {};
        });
}

} // namespace

unsigned compileSkin(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneSkin& skin = context.scene.skins[node.index];
    skin.name = entry.text("name");
    std::vector<std::string> joints = entry.texts("joints");
    const bool isJointsChanged = joints != skin.joints;
    skin.joints = std::move(joints);

    const std::optional<FileLink> link = entry.has("file") ? entry.link("file", "") : std::nullopt;
    const ResourceSource source{link.value_or(FileLink{}), {}};
    const unsigned changes = isJointsChanged ? ContentsChanged | BindingChanged : NothingChanged;
    if(context.sources.isCurrent(node, source) && skin.inverseBindMatrices.size() == skin.joints.size()) return changes;

    auto matrices = link ? load(context, entry, *link, skin.joints.size()) : std::nullopt;
    const bool wasIdentity = !context.sources.has(node);
    context.sources.set(node, matrices ? source : ResourceSource{});
    if(!matrices && wasIdentity && !isJointsChanged) return NothingChanged;
    skin.inverseBindMatrices = matrices ? std::move(*matrices) : std::vector<Matrix4>(skin.joints.size());
    return changes | ContentsChanged;
}

} // namespace VantrelEngine
