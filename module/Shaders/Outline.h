#pragma once

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector2.h>

#include "Shaders/FullScreenShaderProgram.h"

namespace VantrelEngine::Shaders {

// Turns the mask into seeds. Expects the mask in texture unit 0.
class OutlineInit: public FullScreenShaderProgram {
public:
    explicit OutlineInit();
};

// One step of the flood. Expects the positions so far in texture unit 1.
class OutlineStep: public FullScreenShaderProgram {
public:
    explicit OutlineStep();

    // Distance of the neighbours that are asked, in pixels.
    OutlineStep& setSpacing(Magnum::UnsignedInt spacing);

private:
    Magnum::Int _spacingUniform = -1;
};

// Paints the outline. Expects the mask in texture unit 0 and the positions in texture unit 1.
class OutlineDraw: public FullScreenShaderProgram {
public:
    explicit OutlineDraw();

    OutlineDraw& setWidth(Magnum::Float width);
    OutlineDraw& setColor(const Magnum::Color4& color);

private:
    Magnum::Int _widthUniform = -1;
    Magnum::Int _colorUniform = -1;
};

// Paints a line of even width around everything that a mask covers.
//
// A jump flood: every pixel learns the closest point of the mask within the width, in as many steps as the width has
// bits. Positions are fractions of the viewport in 16 bits, exact to 1/65535 of its size; (0, 0) is none.
//
// All of it, from the construction to the destruction, with the GL context that was current at the construction.
class Outline {
public:
    explicit Outline();

    // Expects a size above zero in both directions and not beyond what textures can have. Keeps what it has when
    // the size is the same as before, makes two new textures otherwise. In pixels.
    Outline& setViewportSize(const Magnum::Vector2i& size);

    // Not owned; has to stay until draw() has returned. The red channel says how much of a pixel is covered, from 0 to
    // 1. Expected to be a texture of the size of the viewport, with a level 0.
    Outline& setMaskTexture(Magnum::GL::Texture2D& mask);

    // In pixels. 1 by default, which reaches no farther than the edges of the mask itself; zero or less draws nothing.
    Outline& setWidth(Magnum::Float width);

    // Opaque white by default.
    Outline& setColor(const Magnum::Color4& color);

    // Blends the outline over what is in the target's corner at (0, 0), as large as the viewport. Expects a viewport
    // size and a mask, and blending, scissor and stencil test switched off. Leaves the target bound, with this viewport,
    // depth testing on, blending off and the blend function and equation of plain transparency.
    void draw(Magnum::GL::AbstractFramebuffer& target);

    // How many calls of the GL a draw() makes that draw something.
    Magnum::UnsignedInt drawCalls() const;
    // Video memory of the textures, in their format.
    Magnum::UnsignedLong bytes() const { return Magnum::UnsignedLong(_viewportSize.product()) * 2 * BytesOfPosition; }

private:
    static constexpr Magnum::UnsignedLong BytesOfPosition = 4;

    void createPositions(const Magnum::Vector2i& size, Magnum::Int index);
    void seed(const Magnum::Vector2& size);
    Magnum::Int flood(const Magnum::Vector2& size);
    void composite(Magnum::GL::AbstractFramebuffer& target, Magnum::GL::Texture2D& positions);

    OutlineInit _init;
    OutlineStep _step;
    OutlineDraw _draw;
    Magnum::Vector2i _viewportSize;
    Magnum::GL::Framebuffer _offscreenFb[2]{
        Magnum::GL::Framebuffer{Magnum::NoCreate}, Magnum::GL::Framebuffer{Magnum::NoCreate}};
    Magnum::GL::Texture2D* _mask = nullptr;
    Magnum::GL::Texture2D _positions[2]{
        Magnum::GL::Texture2D{Magnum::NoCreate}, Magnum::GL::Texture2D{Magnum::NoCreate}};
    Magnum::Float _width = 1.0f;
    Magnum::Color4 _color{1.0f, 1.0f, 1.0f, 1.0f};
};

}
