#pragma once

#include <map>
#include <vector>

#include "Import/Converter/GltfMaterials.h"

namespace VantrelImport {

// The meshes of a glTF file, each read when it is asked for first: a mesh of the model for each of its primitives that
// can be used.
class GltfMeshes {
public:
    explicit GltfMeshes(GltfFile& file, GltfMaterials& materials, Model& model, Messages& messages):
        _file{file}, _materials{materials}, _model{model}, _messages{messages} {}

    // Positions in the model.
    const std::vector<int>& use(int mesh);

private:
    int addPrimitive(const Json& json, const std::string& name);
    bool hasTriangles(const Json& json, const std::string& name);
    void readAttributes(const Json& attributes, Mesh& mesh);
    void readColors(int accessor, Mesh& mesh);
    void readSkinning(const Json& attributes, Mesh& mesh);
    void readIndices(const Json& json, Mesh& mesh);
    void sayWhatIsLeftOut(const Json& json, const std::string& name);

    GltfFile& _file;
    GltfMaterials& _materials;
    Model& _model;
    Messages& _messages;
    std::map<int, std::vector<int>> _meshes;
};

} // namespace VantrelImport
