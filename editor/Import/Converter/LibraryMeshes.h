#pragma once

#include <map>
#include <string>
#include <vector>

#include <assimp/scene.h>

#include "Import/Converter/LibraryMaterials.h"

namespace VantrelImport {

// The meshes of a scene of Assimp, each read when it is asked for first.
class LibraryMeshes {
public:
    explicit LibraryMeshes(const aiScene& scene, LibraryMaterials& materials, Model& model, Messages& messages):
        _scene{scene}, _materials{materials}, _model{model}, _messages{messages} {}

    // Position in the model; Nothing where it cannot be used. The name is for a mesh without one.
    int use(unsigned mesh, const std::string& name);

private:
    Mesh read(const aiMesh& source, const std::string& name);
    void readSkinning(const aiMesh& source, Mesh& mesh);

    const aiScene& _scene;
    LibraryMaterials& _materials;
    Model& _model;
    Messages& _messages;
    std::map<unsigned, int> _meshes;
};

} // namespace VantrelImport
