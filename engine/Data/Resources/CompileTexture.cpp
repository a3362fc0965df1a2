#include <tuple>

#include "Data/Resources/ResourceHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;
using namespace Magnum;

namespace {

constexpr Containers::StringView Filters[]{"linear"_s, "nearest"_s};
constexpr SamplerFilter FilterValues[]{SamplerFilter::Linear, SamplerFilter::Nearest};

constexpr Containers::StringView Mipmaps[]{"linear"_s, "nearest"_s, "none"_s};
constexpr SamplerMipmap MipmapValues[]{SamplerMipmap::Linear, SamplerMipmap::Nearest, SamplerMipmap::Base};

constexpr Containers::StringView Wrappings[]{"repeat"_s, "mirror"_s, "clamp"_s};
constexpr SamplerWrapping WrappingValues[]{
    SamplerWrapping::Repeat, SamplerWrapping::MirroredRepeat, SamplerWrapping::ClampToEdge};

auto settings(const SceneTexture& texture) {
    return std::make_tuple(texture.header.image, texture.filter, texture.mipmap, texture.wrapping);
}

} // namespace

unsigned compileTexture(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneTexture& texture = context.scene.textures[node.index];
    const auto before = settings(texture);
    entry.text("name");
    texture.header = {node.index, context.use(node, entry, ResourceKind::Image, entry.text("image"))};
    texture.filter = FilterValues[entry.choice("filter", Filters, 0)];
    texture.mipmap = MipmapValues[entry.choice("mipmap", Mipmaps, 0)];
    texture.wrapping = WrappingValues[entry.choice("wrap", Wrappings, 0)];
    return settings(texture) != before ? ContentsChanged : NothingChanged;
}

} // namespace VantrelEngine
