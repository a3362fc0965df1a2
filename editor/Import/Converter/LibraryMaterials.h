#pragma once

#include <map>
#include <string>

#include <assimp/scene.h>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// The materials of a scene of Assimp, each read when it is asked for first, and the images that they use: embedded ones,
// or files beside the model. What describes highlights by an exponent becomes a roughness.
class LibraryMaterials {
public:
    explicit LibraryMaterials(const aiScene& scene, const AssetFolder& folder, Model& model, Messages& messages):
        _scene{scene}, _folder{folder}, _model{model}, _messages{messages} {}

    // Position in the model; Nothing where the file gives its surfaces no material.
    int use(unsigned material);

private:
    Material read(const aiMaterial& source, const std::string& name);
    void readColors(const aiMaterial& source, Material& material);
    void readTextures(const aiMaterial& source, Material& material);
    void readOpacity(const aiMaterial& source, Material& material);
    TextureUse texture(const aiMaterial& source, aiTextureType type, const std::string& material);
    int image(const std::string& path);
    int embeddedImage(const aiTexture& texture, const std::string& name);

    const aiScene& _scene;
    const AssetFolder& _folder;
    Model& _model;
    Messages& _messages;
    std::map<unsigned, int> _materials;
    std::map<std::string, int> _images;
};

} // namespace VantrelImport
