#include "ProofScene.h"

#include <cstdlib>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Resource.h>
#include <Magnum/GL/AbstractFramebuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/MeshTools/Concatenate.h>
#include <Magnum/MeshTools/Transform.h>
#include <Magnum/Primitives/Axis.h>
#include <Magnum/Primitives/Cone.h>
#include <Magnum/Primitives/Cube.h>
#include <Magnum/Primitives/Cylinder.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Magnum/Trade/MeshData.h>

#include "AbstractProof.h"

using namespace Corrade;
using namespace Magnum;
using namespace Magnum::Math::Literals;

namespace VantrelProof {

namespace {

// The words of the line of a resource that starts with `name`.
Containers::Array<Containers::StringView> line(const char* group, const char* file, Containers::StringView name) {
    for(const Containers::StringView line: Utility::Resource{group}.getString(file).split('\n')) {
        Containers::Array<Containers::StringView> words = line.split(' ');
        if(!words.isEmpty() && words[0] == name) return words;
    }
    CORRADE_ASSERT_UNREACHABLE("proof: there is no" << name << "in" << file, {});
}

Color3 color(const char* name) {
    const std::string hexadecimal = line(PaletteGroup, "palette.txt", name)[1];
    const unsigned long value = std::strtoul(hexadecimal.data(), nullptr, 16);
    return Color3{Float(value >> 16 & 0xff), Float(value >> 8 & 0xff), Float(value & 0xff)} / 255.0f;
}

// Of the whole, which is 1000 wide and high, from the lower left corner.
Range2Di tile(const char* name, const Vector2i& size) {
    const auto words = line(LayoutGroup, "layout.txt", name);
    Int numbers[4];
    for(std::size_t i = 0; i != 4; ++i) numbers[i] = std::atoi(std::string{words[i + 1]}.data());
    return Range2Di::fromSize(
        Vector2i{numbers[0], numbers[1]} * size / 1000, Vector2i{numbers[2], numbers[3]} * size / 1000);
}

// A shaft with a point, along Y. Positions only: the normals of both stay good enough.
Trade::MeshData arrow() {
    Trade::MeshData cone = Primitives::coneSolid(1, 24, 1.0f, Primitives::ConeFlag::CapEnd);
    Trade::MeshData cylinder = Primitives::cylinderSolid(1, 24, 1.0f, Primitives::CylinderFlag::CapEnds);
    MeshTools::transformPointsInPlace(
        Matrix4::translation(Vector3::yAxis(0.75f)) * Matrix4::scaling({0.45f, 0.45f, 0.45f}),
        cone.mutableAttribute<Vector3>(Trade::MeshAttribute::Position));
    MeshTools::transformPointsInPlace(
        Matrix4::translation(Vector3::yAxis(-0.45f)) * Matrix4::scaling({0.16f, 0.75f, 0.16f}),
        cylinder.mutableAttribute<Vector3>(Trade::MeshAttribute::Position));
    return MeshTools::concatenate({cone, cylinder});
}

}

struct ProofScene::View {
    Vector2 size;
    Matrix4 projection, camera;
};

ProofScene::ProofScene():
    _visualizer{Shaders::MeshVisualizerGL3D::Configuration{}.setFlags(
        Shaders::MeshVisualizerGL3D::Flag::Wireframe | Shaders::MeshVisualizerGL3D::Flag::NormalDirection)},
    _axes{MeshTools::compile(Primitives::axis3D())}, _cube{MeshTools::compile(Primitives::cubeWireframe())},
    _arrow{MeshTools::compile(arrow())}, _sphere{MeshTools::compile(Primitives::uvSphereSolid(32, 64))},
    _coarseSphere{MeshTools::compile(Primitives::uvSphereSolid(8, 16))} {}

void ProofScene::draw(GL::AbstractFramebuffer& framebuffer, const Vector2i& size) {
    const struct {
        const char* name;
        void (ProofScene::*draw)(const View&);
    } objects[]{{"axes", &ProofScene::drawAxes}, {"cube", &ProofScene::drawCube}, {"arrow", &ProofScene::drawArrow},
        {"sphere", &ProofScene::drawSphere}, {"mesh", &ProofScene::drawMesh}};

    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
    GL::Renderer::setClearColor(color("background"));
    framebuffer.clear(GL::FramebufferClear::Color | GL::FramebufferClear::Depth);
    GL::Renderer::setClearColor(color("tile"));
    for(const auto& object: objects) {
        const Range2Di rectangle = tile(object.name, size);
        framebuffer.setViewport(rectangle);
        GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
        GL::Renderer::setScissor(rectangle);
        framebuffer.clear(GL::FramebufferClear::Color);
        GL::Renderer::disable(GL::Renderer::Feature::ScissorTest);

        const Vector2 tileSize{rectangle.size()};
        // The angle is the horizontal one: what is above and below stays the same in all tiles.
        const Float aspect = tileSize.aspectRatio();
        (this->*object.draw)({tileSize, Matrix4::perspectiveProjection(Vector2{0.56f * aspect, 0.56f}, 1.0f, 10.0f),
            Matrix4::translation(Vector3::zAxis(-4.6f)) * Matrix4::rotationX(24.0_degf) *
                Matrix4::rotationY(-32.0_degf)});
    }
    framebuffer.setViewport({{}, size});
}

void ProofScene::drawAxes(const View& view) {
    const Matrix4 model = Matrix4::scaling(Vector3{1.6f}) * Matrix4::translation({-0.35f, -0.5f, -0.35f});
    _vertexColor.setTransformationProjectionMatrix(view.projection * view.camera * model).draw(_axes);
}

void ProofScene::drawCube(const View& view) {
    _flat.setTransformationProjectionMatrix(view.projection * view.camera * Matrix4::scaling(Vector3{0.65f}))
        .setColor(color("cube"))
        .draw(_cube);
}

void ProofScene::drawArrow(const View& view) {
    View tilted = view;
    tilted.camera = view.camera * Matrix4::rotationZ(-35.0_degf);
    drawShaded(tilted, _arrow, "arrow");
}

void ProofScene::drawSphere(const View& view) { drawShaded(view, _sphere, "sphere"); }

void ProofScene::drawShaded(const View& view, GL::Mesh& mesh, const char* name) {
    _phong.setLightPositions({Vector4{-2.0f, 3.0f, 4.0f, 0.0f}})
        .setAmbientColor(color(name) * 0.25f)
        .setDiffuseColor(color(name))
        .setSpecularColor(Color4{0.5f, 0.5f, 0.5f, 0.0f})
        .setShininess(40.0f)
        .setProjectionMatrix(view.projection)
        .setTransformationMatrix(view.camera)
        .setNormalMatrix(view.camera.normalMatrix())
        .draw(mesh);
}

void ProofScene::drawMesh(const View& view) {
    _visualizer.setViewportSize(view.size)
        .setColor(color("mesh"))
        .setWireframeColor(color("wireframe"))
        .setWireframeWidth(1.0f)
        .setLineWidth(1.5f)
        .setLineLength(0.22f)
        .setProjectionMatrix(view.projection)
        .setTransformationMatrix(view.camera)
        .setNormalMatrix(view.camera.normalMatrix())
        .draw(_coarseSphere);
}

}
