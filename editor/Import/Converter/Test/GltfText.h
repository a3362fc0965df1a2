#pragma once

#include <string>

namespace VantrelImport::Test {

// A glTF text with the members "asset", a buffer with one triangle as accessor 0, one mesh "Shape" of it with material 0,
// and one object "Thing" that has the mesh. More members follow; what is given instead of the scene may have other objects.
inline std::string triangleGltf(const std::string& more = {},
    const std::string& scene = R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"Thing","mesh":0}])") {
    // (0, 0, 0), (1, 0, 0), (0, 1, 0)
    return R"({"asset":{"version":"2.0"},"buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,)"
           R"(AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA"}],"bufferViews":[{"buffer":0,"byteLength":36}],)"
           R"("accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"}],)"
           R"("meshes":[{"name":"Shape","primitives":[{"attributes":{"POSITION":0},"material":0}]}],)" +
        scene + more + '}';
}

} // namespace VantrelImport::Test
