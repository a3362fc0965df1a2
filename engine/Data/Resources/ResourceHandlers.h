#pragma once

#include <string>

#include <Corrade/Containers/Array.h>
#include <Vantrel/EngineData/ResourceManager.h>
#include <Vantrel/EngineData/ResourceMaps.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Data/Resources/MeshLayoutCounts.h"
#include "Data/Resources/ResourceEntry.h"
#include "Data/Resources/ResourceSources.h"

namespace VantrelEngine {

// What compiling a resource that was there before has changed; flags.
enum ResourceChange : unsigned {
    NothingChanged = 0,
    // Something that a renderer has a copy of.
    ContentsChanged = 1,
    // Something that the resources that use it are compiled from.
    DependentsChanged = 2,
    // Something that objects that use it take over when they are compiled.
    BindingChanged = 4
};

// What handlers read and write.
struct ResourceContext {
    const ResourceManager& files;
    SceneResources& scene;
    ResourceMaps& maps;
    ResourceSources sources;
    MeshLayoutCounts layout;
    // Of the image whose pixels, and of the mesh whose data changed last.
    std::uint32_t imageRevision = 0, meshRevision = 0;

    // The index of the resource that an entry names; notes the use. 0 for an empty id, and, with a report, for one that
    // is not compiled.
    Id use(ResourceNode& user, const ResourceEntry& entry, ResourceKind kind, Corrade::Containers::StringView id);

    // Reads a file and takes it apart with Value reader(bytes, reason), where Value is a std::optional. None, and one
    // report, where that fails.
    template<class Reader>
    auto load(const ResourceEntry& entry, const FileLink& link, std::size_t limit, Reader&& reader) const
        -> decltype(reader(Corrade::Containers::ArrayView<const char>{}, std::declval<std::string&>())) {
        std::string reason;
        const auto bytes = files.read(link, limit, reason);
        if(bytes)
            if(auto value = reader(Corrade::Containers::ArrayView<const char>{*bytes}, reason)) return value;
        entry.report(link.file + ": " + reason);
        return {};
    }
};

// Bytes of a file.
constexpr std::size_t MaximumMeshFileSize = std::size_t{1} << 30;
constexpr std::size_t MaximumImageFileSize = std::size_t{256} << 20;
constexpr std::size_t MaximumFontFileSize = std::size_t{64} << 20;
constexpr std::size_t MaximumShaderFileSize = std::size_t{1} << 20;

// A handler a kind: fills the slot of the node from the document's entry and notes what the resource uses. A new slot has
// an id and is empty otherwise.
unsigned compileImage(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileTexture(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileShader(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compilePipeline(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileMaterial(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileMesh(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileSkin(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileAnimation(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);
unsigned compileFont(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry);

} // namespace VantrelEngine
