#pragma once

#include <Vantrel/EngineData/SceneResources.h>

namespace VantrelEngine {

// The switches of the GL while meshes of several pipelines are drawn: told to the GL only where they change.
class PassState {
public:
    // Expects those of RendererState{}.
    PassState() = default;

    // As a pipeline wants them, for meshes whose front is the other side where they are mirrored.
    void apply(const PipelineHeader& header, bool isMirrored);
    // Only which sides are seen.
    void applySides(const PipelineHeader& header, bool isMirrored);
    // Back to those of RendererState{}.
    void end();

private:
    template<class Tell> void set(bool& known, bool wanted, Tell tell) {
        if(known == wanted) return;
        known = wanted;
        tell(wanted);
    }

    bool _isDepthTested = true;
    bool _isDepthWritten = true;
    bool _isBlended = false;
    bool _isCulled = true;
    bool _isMirrored = false;
};

} // namespace VantrelEngine
