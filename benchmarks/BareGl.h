#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/GL/OpenGL.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>

#include "GridProject.h"

// The least that something takes: plain calls of the GL, and nothing around them.
namespace VantrelBench {

// Forgets what the GL was told by others, at the beginning, and what it was told here, at the end.
class BareGl {
public:
    explicit BareGl();
    ~BareGl();
    BareGl(const BareGl&) = delete;
    BareGl& operator=(const BareGl&) = delete;
};

// Ends the program with one line where the GL refuses the sources.
GLuint bareProgram(const char* vertexSource, const char* fragmentSource);

// What the view draws into: a multisampled picture with depth, the same resolved with ids beside it, and the masks.
class BareTargets {
public:
    explicit BareTargets(const Magnum::Vector2i& size);
    ~BareTargets();
    BareTargets(const BareTargets&) = delete;
    BareTargets& operator=(const BareTargets&) = delete;

    void bindPicture() const;
    void bindIds() const;
    // Both, colour and depth.
    void clear() const;

private:
    Magnum::Vector2i _size;
    GLuint _framebuffers[4]{}, _renderbuffers[4]{}, _textures[3]{};
};

// The objects of a grid, each with one uniform and one call.
class BareDraws {
public:
    // With a matrix to clip space for each.
    explicit BareDraws(GridObjects objects, std::vector<Magnum::Matrix4> transformations);
    ~BareDraws();
    BareDraws(const BareDraws&) = delete;
    BareDraws& operator=(const BareDraws&) = delete;

    void draw() const;

private:
    GridObjects _objects;
    std::vector<Magnum::Matrix4> _transformations;
    GLuint _program, _array = 0, _buffers[2]{};
    GLint _transformation;
};

// Passes over all pixels that add nine neighbours at a distance up, each from what the one before made.
class BareNineFetches {
public:
    explicit BareNineFetches(const Magnum::Vector2i& size);
    ~BareNineFetches();
    BareNineFetches(const BareNineFetches&) = delete;
    BareNineFetches& operator=(const BareNineFetches&) = delete;

    void draw(int spacing);

private:
    GLuint _program, _array = 0, _textures[2]{}, _framebuffers[2]{};
    int _target = 0;
    GLint _spacing;
};

}
