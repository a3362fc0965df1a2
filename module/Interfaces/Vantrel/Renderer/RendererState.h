#pragma once

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// Switches of the GL that a pass relies on. What is not named here is never switched on by anyone.
struct CORRADE_VISIBILITY_EXPORT RendererState {
    bool depthTest = true;
    bool depthWrite = true;
    bool colorWrite = true;
    bool faceCulling = true;
    // Of plain transparency: by the source's alpha.
    bool blending = false;

    // Sets all of them, scissor and stencil test off, whatever they were. Where two things are equally near, the one that
    // is drawn later is seen.
    void apply() const;

    // Ids are numbers: they must not be blended, and the one in front counts.
    static RendererState objectIds() { return {}; }
};

} // namespace VantrelEngine
