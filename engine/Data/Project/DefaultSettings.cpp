#include "Data/Project/DefaultSettings.h"

#include <string>

#include <Corrade/Utility/Assert.h>

#include <VantrelHost/DocumentReader.h>

namespace VantrelEngine {

namespace {

// The camera's angles are those from which (1, 1, 1) sees the origin.
constexpr const char* DefaultProject = R"({
  "objects": {},
  "settings": {
    "rendering": {
      "clearColor": [0.1, 0.1, 0.12, 1.0],
      "bloom": {"enabled": false, "passes": 4, "kernelSize": 5, "threshold": 1.0, "intensity": 0.5},
      "hdr": {"exposure": 1.0},
      "environment": {"image": "", "intensity": 1.0, "rotation": 0.0, "background": true},
      "usePreZ": false,
      "useMultiDraw": true,
      "useFrustumCulling": true,
      "textureAtlasSize": [4096, 4096],
      "compressedTextureAtlasSize": [4096, 4096]
    },
    "editor": {
      "camera": {"near": 0.05, "far": 1000.0, "pitch": -35.264, "yaw": 45.0}
    },
    "physx": {"enable": false}
  }
})";

constexpr const char* NewProject = R"({
  "objects": {},
  "shaders": {
    "meshVisualizer": {
      "name": "MeshVisualizer",
      "stage": "mesh",
      "vertex": "Dynamic.vert",
      "fragment": "MeshVisualizer.frag",
      "parameters": [{"name": "color", "type": "color"}, {"name": "wireframeColor", "type": "color"}]
    },
    "text": {
      "name": "Text",
      "stage": "text",
      "vertex": "Text.vert",
      "fragment": "Text.frag",
      "parameters": [
        {"name": "color", "type": "color", "default": [1, 1, 1, 1]},
        {"name": "effectColor", "type": "color", "default": [0, 0, 0, 1]}
      ]
    },
    "lit": {
      "name": "Lit",
      "stage": "mesh",
      "variant": 1,
      "vertex": "Dynamic.vert",
      "fragment": "Lit.frag",
      "parameters": [
        {"name": "baseColor", "type": "color", "default": [1, 1, 1, 1]},
        {"name": "baseColorTexture", "type": "texture"},
        {"name": "metalness", "type": "float", "default": 0},
        {"name": "roughness", "type": "float", "default": 0.8},
        {"name": "metallicRoughnessTexture", "type": "texture"},
        {"name": "normalTexture", "type": "texture"},
        {"name": "normalScale", "type": "float", "default": 1},
        {"name": "occlusionTexture", "type": "texture"},
        {"name": "emissiveColor", "type": "color", "default": [0, 0, 0, 1]},
        {"name": "emissiveTexture", "type": "texture"},
        {"name": "alphaCutoff", "type": "float", "default": 0.5}
      ]
    },
    "flat": {
      "name": "Flat",
      "stage": "mesh",
      "variant": 1,
      "vertex": "Dynamic.vert",
      "fragment": "Flat.frag",
      "parameters": [
        {"name": "color", "type": "color", "default": [1, 1, 1, 1]},
        {"name": "colorTexture", "type": "texture"}
      ]
    }
  },
  "pipelines": {
    "meshVisualizer": {"name": "MeshVisualizer", "shader": "meshVisualizer", "features": [], "doubleSided": true, "blend": true},
    "text": {"name": "Text", "shader": "text", "features": [], "doubleSided": true, "depthWrite": false, "blend": true},
    "lit": {"name": "Lit", "shader": "lit", "features": []},
    "flat": {"name": "Flat", "shader": "flat", "features": []}
  },
  "materials": {
    "lit": {
      "name": "Lit",
      "pipeline": "lit",
      "Lit": {
        "baseColor": [0.8, 0.8, 0.8, 1],
        "baseColorTexture": "",
        "metalness": 0,
        "roughness": 0.8,
        "metallicRoughnessTexture": "",
        "normalTexture": "",
        "normalScale": 1,
        "occlusionTexture": "",
        "emissiveColor": [0, 0, 0, 1],
        "emissiveTexture": "",
        "alphaCutoff": 0.5
      }
    },
    "flat": {"name": "Flat", "pipeline": "flat", "Flat": {"color": [1, 1, 1, 1], "colorTexture": ""}}
  }
})";

JsonDocument parsed(const char* text) {
    JsonDocument document;
    const std::string error = parseDocument(text, document);
    CORRADE_ASSERT(error.empty(), "DefaultSettings:" << error.c_str(), document);
    return document;
}

} // namespace

JsonDocument defaultProject() { return parsed(DefaultProject); }

JsonDocument newProject() { return parsed(NewProject); }

} // namespace VantrelEngine
