#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/ObjectName.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/GL/Sampler.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

// What all textures have in common. A texture needs storage and, unless it has all mip levels, a minification filter
// without mipmaps: the default of GL blends levels, and without them samples black.
class CORRADE_VISIBILITY_EXPORT AbstractTexture {
public:
    // Whatever is bound to the unit.
    static void unbind(Int unit);

    UnsignedInt id() const { return _id; }
    Containers::String label() const;

    // To a unit, for shaders.
    void bind(Int unit);

protected:
    explicit AbstractTexture(GLenum target);
    explicit AbstractTexture(NoCreateT, GLenum target) noexcept: _target{target} {}
    AbstractTexture(AbstractTexture&&) noexcept = default;
    AbstractTexture& operator=(AbstractTexture&&) noexcept = default;
    ~AbstractTexture();

    // Makes glTex...() calls on the target affect this texture.
    void activate();
    void setLabel(Containers::StringView label);
    void setParameter(GLenum name, GLint value);
    void setMinificationFilter(SamplerFilter filter, SamplerMipmap mipmap);
    void setWrapping(SamplerWrapping wrapping);
    void setBorderColor(const Color4& color);
    void setMaxAnisotropy(Float anisotropy);
    void setSwizzle(const char (&channels)[4]);
    void allocate2D(Int levels, TextureFormat format, const Vector2i& size);
    void allocate3D(Int levels, TextureFormat format, const Vector3i& size);
    void generateMipmap();

    Implementation::ObjectName _id;
    GLenum _target;
};

namespace Implementation {

// The setters of textures, which return the texture. They take effect at once.
template<class Derived> class TextureParameters: public AbstractTexture {
public:
    Derived& setLabel(Containers::StringView label) {
        AbstractTexture::setLabel(label);
        return self();
    }

    Derived& setMinificationFilter(SamplerFilter filter, SamplerMipmap mipmap = SamplerMipmap::Base) {
        AbstractTexture::setMinificationFilter(filter, mipmap);
        return self();
    }
    Derived& setMinificationFilter(
        Magnum::SamplerFilter filter, Magnum::SamplerMipmap mipmap = Magnum::SamplerMipmap::Base) {
        return setMinificationFilter(samplerFilter(filter), samplerMipmap(mipmap));
    }
    Derived& setMagnificationFilter(SamplerFilter filter) { return set(GL_TEXTURE_MAG_FILTER, filter); }
    Derived& setMagnificationFilter(Magnum::SamplerFilter filter) {
        return setMagnificationFilter(samplerFilter(filter));
    }
    // In both directions of an image.
    Derived& setWrapping(SamplerWrapping wrapping) {
        AbstractTexture::setWrapping(wrapping);
        return self();
    }
    Derived& setWrapping(Magnum::SamplerWrapping wrapping) { return setWrapping(samplerWrapping(wrapping)); }
    // For SamplerWrapping::ClampToBorder. At first transparent black.
    Derived& setBorderColor(const Color4& color) {
        AbstractTexture::setBorderColor(color);
        return self();
    }
    // Without effect where GL lacks it. 1 is none.
    Derived& setMaxAnisotropy(Float anisotropy) {
        AbstractTexture::setMaxAnisotropy(anisotropy);
        return self();
    }
    // First and last level that are sampled.
    Derived& setBaseLevel(Int level) { return set(GL_TEXTURE_BASE_LEVEL, level); }
    Derived& setMaxLevel(Int level) { return set(GL_TEXTURE_MAX_LEVEL, level); }
    Derived& setCompareMode(SamplerCompareMode mode) { return set(GL_TEXTURE_COMPARE_MODE, mode); }
    Derived& setCompareFunction(SamplerCompareFunction function) { return set(GL_TEXTURE_COMPARE_FUNC, function); }
    // What a shader gets as red, green, blue and alpha: each 'r', 'g', 'b', 'a', '0' or '1'.
    template<char r, char g, char b, char a> Derived& setSwizzle() {
        static_assert(isChannel(r) && isChannel(g) && isChannel(b) && isChannel(a), "channels are r, g, b, a, 0, 1");
        AbstractTexture::setSwizzle({r, g, b, a});
        return self();
    }

protected:
    using AbstractTexture::AbstractTexture;

private:
    static constexpr bool isChannel(char c) {
        return c == 'r' || c == 'g' || c == 'b' || c == 'a' || c == '0' || c == '1';
    }

    Derived& self() { return static_cast<Derived&>(*this); }
    template<class T> Derived& set(GLenum name, T value) {
        setParameter(name, GLint(value));
        return self();
    }
};

}

}
