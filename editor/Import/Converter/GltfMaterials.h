#pragma once

#include <map>
#include <set>
#include <string>

#include "Import/Converter/GltfFile.h"
#include "Import/Converter/Messages.h"

namespace VantrelImport {

// The materials of a glTF file, each read when it is asked for first, and the images that they use.
class GltfMaterials {
public:
    explicit GltfMaterials(GltfFile& file, Model& model, Messages& messages):
        _file{file}, _model{model}, _messages{messages} {}

    // Position in the model of a material of the file; Nothing where there is none.
    int use(int material);

private:
    Material read(const Json& json, const std::string& name);
    void readMetallicRoughness(const Json* json, Material& material);
    void readSpecularGlossiness(const Json& json, Material& material);
    void readExtensions(const Json& json, Material& material);
    TextureUse texture(const Json* info, const std::string& material);
    void place(const Json& info, TextureUse& use, const std::string& material);
    int image(const Json& texture, const std::string& material);
    int loadImage(int index);
    Sampler sampler(const Json& texture);

    GltfFile& _file;
    Model& _model;
    Messages& _messages;
    std::map<int, int> _materials, _images;
};

} // namespace VantrelImport
