#pragma once

#include <memory>
#include <vector>

#include <Vantrel/EngineData/Types.h>

#include "Renderer/PostProcess/FullScreenProgram.h"
#include "Renderer/PostProcess/SideTarget.h"

namespace VantrelEngine {

// Counts how often each pixel of a view is drawn, and shows the counts as colours. Uses the texture unit 0.
class OverdrawDrawing {
public:
    explicit OverdrawDrawing();

    // Binds what is counted in: everything that is drawn adds its red, with the depth of the view's target. Leaves the
    // factors of blending so that it does, for who switches it on.
    void begin(Id view, Magnum::GL::AbstractFramebuffer& target);
    // Draws the colours over the target wherever something was drawn; binds the target. Without effect on a view that was
    // not begun. Leaves the switches of RendererState{}.
    void show(Id view, Magnum::GL::AbstractFramebuffer& target);

private:
    FullScreenProgram _colors;
    std::vector<std::unique_ptr<SideTarget>> _counts;
};

} // namespace VantrelEngine
