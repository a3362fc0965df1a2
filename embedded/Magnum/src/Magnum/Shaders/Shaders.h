#pragma once

// Forward declarations of Magnum::Shaders.

namespace Magnum::Shaders {

struct GenericGL3D;
class FlatGL3D;
class MeshVisualizerGL3D;
class PhongGL;
class VertexColorGL3D;

}
