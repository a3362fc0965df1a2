#pragma once

#include <cstddef>
#include <memory>

#include <Corrade/Containers/Optional.h>
#include <Magnum/GL/Texture.h>

#include "Renderer/Environment/EnvironmentBake.h"
#include "Renderer/Environment/EnvironmentPicture.h"

namespace VantrelEngine {

// Computes with the GL what surfaces receive and mirror of surroundings: all at once, or some rows after the other.
class EnvironmentBaker {
public:
    explicit EnvironmentBaker();
    ~EnvironmentBaker();

    // Begins anew. The picture is kept until the end.
    void begin(EnvironmentPicture picture);
    void cancel();
    bool isUnderWay() const { return _target != BakeTargetCount; }
    const EnvironmentPicture& picture() const { return _picture; }

    // Takes about this many samples of the surroundings, those of one row at least; 0: all that are left. Framebuffers
    // that are bound stay so; switches are those of RendererState{} afterwards. True where that was the end: then bake()
    // is complete.
    bool advance(std::size_t samples);
    const EnvironmentBake& bake() const { return _bake; }

private:
    struct Programs;

    void beginTarget();
    void drawRows(Magnum::Int count);
    void readTarget();

    // Made when they are needed first.
    std::unique_ptr<Programs> _programs;
    // The one as it is, and what the samples are taken of: smaller, and without small suns.
    EnvironmentPicture _picture, _smallPicture;
    std::size_t _target = BakeTargetCount;
    Magnum::Int _row = 0;
    Corrade::Containers::Optional<Magnum::GL::Texture2D> _source, _result;
    EnvironmentBake _bake;
};

} // namespace VantrelEngine
