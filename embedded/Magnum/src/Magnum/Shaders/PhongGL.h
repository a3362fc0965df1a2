#pragma once

#include <initializer_list>

#include "Corrade/Containers/EnumSet.h"
#include "Magnum/GL/GL.h"
#include "Magnum/Shaders/GenericGL.h"
#include "Magnum/Shaders/Program.h"

namespace Magnum::Shaders {

// Phong reflection, evaluated per fragment in camera space:
//
//      ambient + sum over the lights (diffuse max(n.l, 0) + specular max(v.r, 0)^shininess) attenuation
//
// with r the direction of the light reflected by the surface. The attenuation of a light at distance d is
// clamp(1 - (d/range)^4, 0, 1)^2/(1 + d^2), and 1 for a directional light. Alpha is that of the ambient colour plus, when
// there are lights, that of the diffuse one plus that of the specular one for each light that reaches the surface.
class CORRADE_VISIBILITY_EXPORT PhongGL: public Implementation::Program {
public:
    enum class Flag : UnsignedInt {
        DiffuseTexture = 2,
        // Fragments whose final alpha is not above the mask are discarded.
        AlphaMask = 8,
        // Needs tangents of four components, the last one the handedness of the bitangent.
        NormalTexture = 16,
        // The object id is written to GenericGL3D::ObjectIdOutput.
        ObjectId = 128
    };
    typedef Containers::EnumSet<Flag> Flags;

    class Configuration {
    public:
        Configuration(): _lightCount{1} {}
        Configuration& setFlags(Flags flags) {
            _flags = flags;
            return *this;
        }
        // 1 by default.
        Configuration& setLightCount(UnsignedInt count) {
            _lightCount = count;
            return *this;
        }

    private:
        friend PhongGL;
        Flags _flags;
        UnsignedInt _lightCount;
    };

    // Expects a current GL context.
    explicit PhongGL(const Configuration& configuration = Configuration{});
    // Without a GL object; only to be moved into.
    explicit PhongGL(NoCreateT) noexcept: Program{NoCreate} {}

    Flags flags() const { return _flags; }

    // (0, 0, 0, 0), (1, 1, 1, 1), (1, 1, 1, 0) and 80 by default.
    PhongGL& setAmbientColor(const Color4& color) { return set(*this, _ambientColor, color); }
    PhongGL& setDiffuseColor(const Color4& color) { return set(*this, _diffuseColor, color); }
    PhongGL& setSpecularColor(const Color4& color) { return set(*this, _specularColor, color); }
    PhongGL& setShininess(Float shininess) { return set(*this, _shininess, shininess); }

    // From object space to camera space, its counterpart for normals, and from camera space to clip space; identity
    // by default. Normals need not be of unit length, neither before nor after the transformation.
    PhongGL& setTransformationMatrix(const Matrix4& matrix) { return set(*this, _transformationMatrix, matrix); }
    PhongGL& setNormalMatrix(const Matrix3x3& matrix) { return set(*this, _normalMatrix, matrix); }
    PhongGL& setProjectionMatrix(const Matrix4& matrix) { return set(*this, _projectionMatrix, matrix); }

    // One item a light, or the light with the given index. Positions are in camera space, a direction towards the
    // light where w = 0; by default (0, 0, 1, 0), white and of infinite range.
    PhongGL& setLightPositions(std::initializer_list<Vector4> positions) {
        return setAll("setLightPositions", _lightPositions, positions);
    }
    PhongGL& setLightPosition(UnsignedInt id, const Vector4& position) {
        return set(*this, element("setLightPosition", _lightPositions, id), position);
    }
    PhongGL& setLightColors(std::initializer_list<Color3> colors) {
        return setAll("setLightColors", _lightColors, colors);
    }
    PhongGL& setLightColor(UnsignedInt id, const Color3& color) {
        return set(*this, element("setLightColor", _lightColors, id), color);
    }
    PhongGL& setLightSpecularColors(std::initializer_list<Color3> colors) {
        return setAll("setLightSpecularColors", _lightSpecularColors, colors);
    }
    PhongGL& setLightSpecularColor(UnsignedInt id, const Color3& color) {
        return set(*this, element("setLightSpecularColor", _lightSpecularColors, id), color);
    }
    PhongGL& setLightRanges(std::initializer_list<Float> ranges) {
        return setAll("setLightRanges", _lightRanges, ranges);
    }
    PhongGL& setLightRange(UnsignedInt id, Float range) {
        return set(*this, element("setLightRange", _lightRanges, id), range);
    }

    // The setters below expect the flag that they are about.
    PhongGL& bindDiffuseTexture(GL::Texture2D& texture);
    PhongGL& bindNormalTexture(GL::Texture2D& texture);
    PhongGL& setAlphaMask(Float mask) { // 0.5 by default
        return set(*this, {_flags >= Flag::AlphaMask, "PhongGL::setAlphaMask", "alpha mask"}, _alphaMask, mask);
    }
    PhongGL& setObjectId(UnsignedInt id) {
        return set(*this, {_flags >= Flag::ObjectId, "PhongGL::setObjectId", "object ID"}, _objectId, id);
    }

    MAGNUM_GL_ABSTRACTSHADERPROGRAM_SUBCLASS_DRAW_IMPLEMENTATION(PhongGL)

private:
    template<class T> PhongGL& setAll(const char* setter, Int location, std::initializer_list<T> values) {
        expectAll(setter, values.size());
        return set(*this, location, Containers::arrayView(values));
    }
    void expectAll(const char* setter, std::size_t count) const;
    // The elements of a uniform array have consecutive locations.
    Int element(const char* setter, Int location, UnsignedInt id) const;

    Flags _flags;
    UnsignedInt _lightCount = 0;
    Int _transformationMatrix = -1, _normalMatrix = -1, _projectionMatrix = -1;
    Int _ambientColor = -1, _diffuseColor = -1, _specularColor = -1, _shininess = -1;
    Int _lightPositions = -1, _lightColors = -1, _lightSpecularColors = -1, _lightRanges = -1;
    Int _alphaMask = -1, _objectId = -1;
};

CORRADE_ENUMSET_OPERATORS(PhongGL::Flags)

}
