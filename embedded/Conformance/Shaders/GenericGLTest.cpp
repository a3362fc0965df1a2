#include <type_traits>

#include <Magnum/GL/Attribute.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix3.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Shaders/GenericGL.h>
#include <Magnum/Shaders/Shaders.h>
#include <gtest/gtest.h>

namespace ConformanceShaders {
namespace {

using namespace Magnum;
using Shaders::GenericGL3D;

template<class Attribute, UnsignedInt location, class T>
constexpr bool is = std::is_same<Attribute, GL::Attribute<location, T>>::value;

TEST(GenericGLTest, LocationsAndTypes) {
    EXPECT_TRUE((is<GenericGL3D::Position, 0, Vector3>));
    EXPECT_TRUE((is<GenericGL3D::TextureCoordinates, 1, Vector2>));
    EXPECT_TRUE((is<GenericGL3D::Color3, 2, Color3>));
    EXPECT_TRUE((is<GenericGL3D::Color4, 2, Color4>));
    EXPECT_TRUE((is<GenericGL3D::Tangent, 3, Vector3>));
    EXPECT_TRUE((is<GenericGL3D::Tangent4, 3, Vector4>));
    EXPECT_TRUE((is<GenericGL3D::Bitangent, 4, Vector3>));
    EXPECT_TRUE((is<GenericGL3D::ObjectId, 4, UnsignedInt>));
    EXPECT_TRUE((is<GenericGL3D::Normal, 5, Vector3>));
    EXPECT_TRUE((is<GenericGL3D::JointIds, 6, Vector4ui>));
    EXPECT_TRUE((is<GenericGL3D::Weights, 7, Vector4>));
    EXPECT_TRUE((is<GenericGL3D::TransformationMatrix, 8, Matrix4>));
    EXPECT_TRUE((is<GenericGL3D::SecondaryJointIds, 10, Vector4ui>));
    EXPECT_TRUE((is<GenericGL3D::SecondaryWeights, 11, Vector4>));
    EXPECT_TRUE((is<GenericGL3D::NormalMatrix, 12, Matrix3x3>));
    EXPECT_TRUE((is<GenericGL3D::TextureOffset, 15, Vector2>));
}

TEST(GenericGLTest, Outputs) {
    EXPECT_EQ(UnsignedInt(GenericGL3D::ColorOutput), 0u);
    EXPECT_EQ(UnsignedInt(GenericGL3D::ObjectIdOutput), 1u);
}

}
}
