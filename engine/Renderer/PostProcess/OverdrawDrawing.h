#pragma once

#include "Renderer/PostProcess/OverdrawProgram.h"

namespace Magnum::GL {
class AbstractFramebuffer;
}

namespace VantrelEngine {

// Counts how often each pixel of a framebuffer is drawn, and shows the counts as colours. The counts, of up to 255, are in
// the stencil of the framebuffer itself.
class OverdrawDrawing {
public:
    // Starts again from zero; binds the target. Everything that is drawn adds one where it passes the test of depth, for
    // who switches the stencil test on. False with a line, the first time, where the target has no stencil.
    bool begin(Magnum::GL::AbstractFramebuffer& target);
    // Draws the colours over the target wherever something was drawn; binds the target. Without effect where it has no
    // stencil. Leaves the switches of RendererState{}, and a stencil test that would change nothing.
    void show(Magnum::GL::AbstractFramebuffer& target);

private:
    OverdrawProgram _program;
    bool _isWarned = false;
};

} // namespace VantrelEngine
