#pragma once

#include "Magnum/GL/Attribute.h"
#include "Magnum/Magnum.h"
#include "Magnum/Math/Color.h"
#include "Magnum/Math/Matrix3.h"
#include "Magnum/Math/Matrix4.h"
#include "Magnum/Shaders/Shaders.h"

namespace Magnum::Shaders {

// Vertex attribute locations and fragment outputs that all shaders share, so that a mesh set up once can be drawn by
// any of them. Names that share a location exclude each other in one mesh.
struct GenericGL3D {
    typedef GL::Attribute<0, Vector3> Position;
    typedef GL::Attribute<1, Vector2> TextureCoordinates;
    typedef GL::Attribute<2, Magnum::Color3> Color3;
    typedef GL::Attribute<2, Magnum::Color4> Color4;
    typedef GL::Attribute<3, Vector3> Tangent;
    typedef GL::Attribute<3, Vector4> Tangent4;
    typedef GL::Attribute<4, Vector3> Bitangent;
    typedef GL::Attribute<4, UnsignedInt> ObjectId;
    typedef GL::Attribute<5, Vector3> Normal;
    typedef GL::Attribute<6, Vector4ui> JointIds;
    typedef GL::Attribute<7, Vector4> Weights;
    // Instanced; a matrix takes one location per column.
    typedef GL::Attribute<8, Matrix4> TransformationMatrix;
    typedef GL::Attribute<10, Vector4ui> SecondaryJointIds;
    typedef GL::Attribute<11, Vector4> SecondaryWeights;
    typedef GL::Attribute<12, Matrix3x3> NormalMatrix;
    typedef GL::Attribute<15, Vector2> TextureOffset;

    enum : UnsignedInt { ColorOutput = 0, ObjectIdOutput = 1 };
};

}
