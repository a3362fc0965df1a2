#pragma once

#include <Magnum/GL/OpenGL.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelBench {

// A blur along x and then along y, of so many taps a direction, each from what the one before made: two textures of
// 16 bit floats with the filter that the GL gives to textures, and nothing else.
class BareBlur {
public:
    // Expects an odd number of taps, and BareGl.
    explicit BareBlur(const Magnum::Vector2i& size, int taps);
    ~BareBlur();
    BareBlur(const BareBlur&) = delete;
    BareBlur& operator=(const BareBlur&) = delete;

    void draw();

private:
    GLuint _program, _array = 0, _textures[2]{}, _framebuffers[2]{};
    GLint _direction;
    Magnum::Vector2i _size;
};

}
