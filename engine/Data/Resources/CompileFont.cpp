#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/FontFile.h"
#include "Data/Resources/ResourceHandlers.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::optional<Containers::Array<char>> readFont(Containers::ArrayView<const char> bytes, std::string& reason) {
    if(!checkFont(bytes, reason)) return {};
    return std::optional<Containers::Array<char>>{Containers::Array<char>{InPlaceInit, bytes}};
}

} // namespace

unsigned compileFont(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneFont& font = context.scene.fonts[node.index];
    font.name = entry.text("name");
    const std::optional<FileLink> link = entry.link("file", "");
    const ResourceSource source{link.value_or(FileLink{}), {}};
    if(context.sources.isCurrent(node, source)) return NothingChanged;
    auto data = link ? context.load(entry, *link, MaximumFontFileSize, readFont) : std::nullopt;
    if(!data && !context.sources.has(node)) return NothingChanged;
    context.sources.set(node, data ? source : ResourceSource{});
    font.data = data ? std::move(*data) : Containers::Array<char>{};
    return ContentsChanged;
}

} // namespace VantrelEngine
