#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/ObjectName.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

// Pixels to render to that are never sampled.
class CORRADE_VISIBILITY_EXPORT Renderbuffer {
public:
    static Int maxSamples();

    explicit Renderbuffer();
    explicit Renderbuffer(NoCreateT) noexcept {}
    Renderbuffer(Renderbuffer&&) noexcept = default;
    Renderbuffer& operator=(Renderbuffer&&) noexcept = default;
    ~Renderbuffer();

    UnsignedInt id() const { return _id; }
    Containers::String label() const;
    Renderbuffer& setLabel(Containers::StringView label);

    // The contents are undefined afterwards.
    void setStorage(RenderbufferFormat format, const Vector2i& size);
    void setStorageMultisample(Int samples, RenderbufferFormat format, const Vector2i& size);

private:
    Implementation::ObjectName _id;
};

}
