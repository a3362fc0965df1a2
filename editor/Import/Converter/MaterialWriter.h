#pragma once

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "Import/Converter/JsonBuilder.h"
#include "Import/Converter/Model.h"
#include "Import/Converter/OutputFolder.h"

namespace VantrelImport {

// Materials and what they refer to, in the project's format: one entry for what is equal. The shaders "Lit" and "Flat"
// and their pipelines are those of a new project.
class MaterialWriter {
public:
    explicit MaterialWriter(JsonBuilder& json, OutputFolder& output);

    // Expects images of the model. The id of the material.
    std::string add(const Model& model, const Material& material);
    // What surfaces without a material have.
    std::string addDefault();
    // The ids of an image, for colours, and of a texture with it.
    struct ImageIds {
        std::string image, texture;
    };
    ImageIds addImage(const Model& model, int image);

private:
    enum class ColorSpace { Srgb, Linear };

    std::string texture(const Model& model, const TextureUse& use, ColorSpace space);
    std::string image(const ImageData& data, ColorSpace space);
    std::string shader(bool isUnlit, bool isPlaced);
    std::string pipeline(const Material& material, bool isPlaced);
    JsonValue litValues(const Model& model, const Material& material, bool isPlaced);
    JsonValue flatValues(const Model& model, const Material& material, bool isPlaced);
    void addTexture(JsonValue& values, const Model& model, const char* name, const TextureUse& use, ColorSpace space,
        bool isPlaced);

    JsonBuilder& _json;
    OutputFolder& _output;
    // A new project.
    JsonDocument _project;
    std::map<std::pair<const ImageData*, ColorSpace>, std::string> _images;
    std::map<std::tuple<std::string, Filter, Mipmap, Wrap>, std::string> _textures;
    std::size_t _materials = 0;
    std::string _default;
};

} // namespace VantrelImport
