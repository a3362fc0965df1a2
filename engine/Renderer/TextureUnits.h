#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>

namespace VantrelEngine {

// The texture units of the renderer's shaders, each with one use, so that a texture is bound once for all programs.
namespace TextureUnit {

enum : Magnum::Int {
    ObjectData,
    InstanceList,
    MaterialData,
    TextureTable,
    ColorTextures,
    DataTextures,
    FloatTextures,
    LightData,
    Irradiance,
    Surroundings,
    LightTiles,
    ShadowData,
    ShadowMaps,
};

}

struct SamplerUnit {
    // Of the uniform.
    Corrade::Containers::StringView name;
    Magnum::Int unit;
};

// What a program tells its samplers once, those that it has.
constexpr SamplerUnit SamplerUnits[]{
    {{"objectData", 10}, TextureUnit::ObjectData},
    {{"instanceList", 12}, TextureUnit::InstanceList},
    {{"materialData", 12}, TextureUnit::MaterialData},
    {{"textureTable", 12}, TextureUnit::TextureTable},
    {{"colorTextures", 13}, TextureUnit::ColorTextures},
    {{"dataTextures", 12}, TextureUnit::DataTextures},
    {{"floatTextures", 13}, TextureUnit::FloatTextures},
    {{"lightData", 9}, TextureUnit::LightData},
    {{"irradiance", 10}, TextureUnit::Irradiance},
    {{"surroundings", 12}, TextureUnit::Surroundings},
    {{"lightTiles", 10}, TextureUnit::LightTiles},
    {{"shadowData", 10}, TextureUnit::ShadowData},
    {{"shadowMaps", 10}, TextureUnit::ShadowMaps},
};

} // namespace VantrelEngine
