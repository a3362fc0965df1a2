#pragma once

#include <Magnum/GL/GL.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/Magnum.h>
#include <Magnum/Shaders/FlatGL.h>
#include <Magnum/Shaders/MeshVisualizerGL.h>
#include <Magnum/Shaders/PhongGL.h>
#include <Magnum/Shaders/VertexColorGL.h>

namespace VantrelProof {

// Five objects on tiles, each with a shader or a primitive of its own. Colours and places come from the compiled-in
// resources.
class ProofScene {
public:
    // Compiles the shaders and uploads the meshes.
    ProofScene();

    void draw(Magnum::GL::AbstractFramebuffer& framebuffer, const Magnum::Vector2i& size);

private:
    struct View;

    void drawAxes(const View& view);
    void drawCube(const View& view);
    void drawArrow(const View& view);
    void drawSphere(const View& view);
    void drawMesh(const View& view);
    void drawShaded(const View& view, Magnum::GL::Mesh& mesh, const char* color);

    Magnum::Shaders::FlatGL3D _flat;
    Magnum::Shaders::PhongGL _phong;
    Magnum::Shaders::VertexColorGL3D _vertexColor;
    Magnum::Shaders::MeshVisualizerGL3D _visualizer;
    Magnum::GL::Mesh _axes, _cube, _arrow, _sphere, _coarseSphere;
};

}
