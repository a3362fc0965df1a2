#include <sstream>
#include <type_traits>
#include <utility>

#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Mesh.h>
#include <Magnum/Shaders/FlatGL.h>
#include <Magnum/Shaders/MeshVisualizerGL.h>
#include <Magnum/Shaders/PhongGL.h>
#include <Magnum/Shaders/VertexColorGL.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

namespace ConformanceShaders {
namespace {

using namespace Corrade;
using namespace Magnum;

template<class T> T make() { return T{}; }
template<> Shaders::MeshVisualizerGL3D make() {
    typedef Shaders::MeshVisualizerGL3D Shader;
    return Shader{Shader::Configuration{}.setFlags(Shader::Flag::Wireframe | Shader::Flag::NormalDirection)};
}

// Without a context.
template<class T> class ShaderWithoutContextTest: public testing::Test {};
template<class T> class ShaderLifetimeTest: public VantrelTest::GlTest {};

typedef testing::Types<Shaders::FlatGL3D, Shaders::MeshVisualizerGL3D, Shaders::PhongGL, Shaders::VertexColorGL3D> All;
TYPED_TEST_SUITE(ShaderWithoutContextTest, All);
TYPED_TEST_SUITE(ShaderLifetimeTest, All);

TYPED_TEST(ShaderWithoutContextTest, NoCreateNeedsNoContext) {
    TypeParam shader{NoCreate};
    EXPECT_EQ(shader.id(), 0u);
    TypeParam other{std::move(shader)};
    EXPECT_EQ(other.id(), 0u);
}

TYPED_TEST(ShaderLifetimeTest, IsConstructedSilently) {
    std::ostringstream out;
    Utility::Warning warning{&out};
    Utility::Error error{&out};
    TypeParam shader = make<TypeParam>();
    EXPECT_TRUE(glIsProgram(shader.id()));
    EXPECT_EQ(out.str(), "");
}

TYPED_TEST(ShaderLifetimeTest, IsDeletedOnDestruction) {
    GLuint id;
    {
        TypeParam shader = make<TypeParam>();
        id = shader.id();
    }
    EXPECT_FALSE(glIsProgram(id));
}

TYPED_TEST(ShaderLifetimeTest, MovesButDoesNotCopy) {
    EXPECT_FALSE(std::is_copy_constructible<TypeParam>::value);
    EXPECT_FALSE(std::is_copy_assignable<TypeParam>::value);
    TypeParam a = make<TypeParam>();
    const GLuint id = a.id();
    TypeParam b{std::move(a)};
    EXPECT_EQ(a.id(), 0u);
    EXPECT_EQ(b.id(), id);
    TypeParam c{NoCreate};
    c = std::move(b);
    EXPECT_EQ(c.id(), id);

    // What was moved still draws, and draw() returns the shader itself.
    Canvas canvas;
    GL::Mesh triangle = mesh({{{-1.0f, -1.0f, 0.0f}}, {{3.0f, -1.0f, 0.0f}}, {{-1.0f, 3.0f, 0.0f}}});
    TypeParam& drawn = c.draw(triangle);
    EXPECT_EQ(&drawn, &c);
    EXPECT_FALSE(canvas.isBackground(32, 32));
}

}
}
