#pragma once

#include <cstddef>
#include <iosfwd>

namespace VantrelTest {

// GL objects that the current context has, by kind.
struct LiveObjects {
    std::size_t buffers = 0, textures = 0, framebuffers = 0, renderbuffers = 0, meshes = 0, programs = 0;

    // Asks for names up to some thousands; drivers give the smallest ones that are free.
    static LiveObjects count();

    bool operator==(const LiveObjects& other) const;
    friend void PrintTo(const LiveObjects& objects, std::ostream* out);
};

} // namespace VantrelTest
