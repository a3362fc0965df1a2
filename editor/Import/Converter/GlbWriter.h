#pragma once

#include <string>
#include <vector>

#include "Import/Converter/Model.h"

namespace VantrelImport {

// Files of binary glTF 2.0, each with the one thing that the editor reads from it. The same input gives the same bytes.

// The first primitive of the first mesh. Expects a repaired mesh.
std::string meshFile(const Mesh& mesh);
// The first skin, with its inverse bind matrices.
std::string skinFile(const Skin& skin);

struct AnimationFile {
    std::string bytes;
    // Nodes of the model, in the order in which the channels name them first.
    std::vector<int> targets;
};
// The first animation.
AnimationFile animationFile(const Animation& animation);

} // namespace VantrelImport
