#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/AnimationFile.h"
#include "Data/Resources/ResourceHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

std::optional<Trade::AnimationData> load(
    const ResourceContext& context, const ResourceEntry& entry, const FileLink& link, std::size_t targets) {
    return context.load(entry, link, MaximumMeshFileSize,
        [&](Containers::ArrayView<const char> bytes, std::string& reason) -> std::optional<Trade::AnimationData> {
            auto animation = readAnimation(bytes, reason);
            if(!animation || targetCount(*animation) <= targets) return animation;
            reason = "there are " + std::to_string(targets) + " targets for " +
                std::to_string(targetCount(*animation)) + " nodes";
            return {};
        });
}

Trade::AnimationData empty() {
    return Trade::AnimationData{Containers::Array<char>{}, Containers::Array<Trade::AnimationTrackData>{}};
}

} // namespace

unsigned compileAnimation(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneAnimation& animation = context.scene.animations[node.index];
    animation.name = entry.text("name");
    std::vector<std::string> targets = entry.texts("targets");
    const unsigned changes = targets != animation.targets ? ContentsChanged | BindingChanged : NothingChanged;
    animation.targets = std::move(targets);

    const std::optional<FileLink> link = entry.link("file", "");
    const ResourceSource source{link.value_or(FileLink{}), {}};
    if(context.sources.isCurrent(node, source) && targetCount(*animation.data) <= animation.targets.size())
        return changes;

    auto data = link ? load(context, entry, *link, animation.targets.size()) : std::nullopt;
    if(!data && animation.data && !context.sources.has(node)) return changes;
    context.sources.set(node, data ? source : ResourceSource{});
    animation.data = std::make_unique<Trade::AnimationData>(data ? std::move(*data) : empty());
    return ContentsChanged | BindingChanged;
}

} // namespace VantrelEngine
