#pragma once

#include <memory>
#include <vector>

#include <Magnum/GL/Mesh.h>
#include <Vantrel/EngineData/Types.h>
#include <Vantrel/Renderer/BloomPass.h>

#include "Renderer/PostProcess/FullScreenProgram.h"
#include "Renderer/PostProcess/SideTarget.h"

namespace VantrelEngine {

// Draws views with a glow around what is bright: the scene comes into a picture of its own, in linear colours without a
// limit, out of which the bright pixels are blurred; both are added, their tones mapped, and brought to the screen.
//
// Each view has its own pictures, made anew only where its size or its samples are others than before. Uses the texture
// units 0 and 2.
class BloomDrawing {
public:
    explicit BloomDrawing();

    // Binds what the scene is drawn to in place of the view's target. Depth goes to that of the target. False where the GL
    // has no pictures of that size, for want of memory say: then nothing can be drawn with it any more.
    bool begin(Id view, Magnum::GL::AbstractFramebuffer& target);
    // Draws what came of it over what is in the target, which is bound then. Leaves the switches of RendererState{}.
    void end(Id view, Shaders::BloomPass& pass, Magnum::GL::AbstractFramebuffer& target);

    // Its target is to be another one, be it with the same name in video memory.
    void forget(Id view);

private:
    // What is drawn to in turn: the blurred pixels, along x and then along y, and the outcome.
    struct Pictures {
        explicit Pictures(const Magnum::Vector2i& size);

        Magnum::Vector2i size;
        Magnum::GL::Texture2D blurred[2];
        Magnum::GL::Texture2D mapped;
        Magnum::GL::Framebuffer blurredFb[2];
        Magnum::GL::Framebuffer mappedFb;
    };
    struct View {
        SideTarget scene{"Bloom scene"};
        std::unique_ptr<Pictures> pictures;
    };

    void blur(Shaders::BloomPass& pass, View& view, Magnum::GL::Texture2D& scene);
    void blurOnce(Shaders::Bloom& program, Pictures& pictures, Magnum::GL::Texture2D& scene, bool isFirst, bool isLast);
    void mapTones(Shaders::Bloom& program, Pictures& pictures, Magnum::GL::Texture2D& scene);
    void toScreen(Pictures& pictures, Magnum::GL::AbstractFramebuffer& target);

    FullScreenProgram _screen;
    Magnum::GL::Mesh _triangle;
    std::vector<std::unique_ptr<View>> _views;
};

} // namespace VantrelEngine
