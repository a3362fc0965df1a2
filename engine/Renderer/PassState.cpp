#include "Renderer/PassState.h"

#include <Magnum/GL/Renderer.h>

namespace VantrelEngine {

using GL = Magnum::GL::Renderer;

void PassState::apply(const PipelineHeader& header, bool isMirrored) {
    set(_isDepthTested, header.flags & PipelineHeader::DepthTest,
        [](bool value) { GL::setFeature(GL::Feature::DepthTest, value); });
    set(_isDepthWritten, header.flags & PipelineHeader::DepthWrite, GL::setDepthMask);
    set(_isBlended, header.flags & PipelineHeader::Blend,
        [](bool value) { GL::setFeature(GL::Feature::Blending, value); });
    applySides(header, isMirrored);
}

void PassState::applySides(const PipelineHeader& header, bool isMirrored) {
    set(_isCulled, !(header.flags & PipelineHeader::DoubleSided),
        [](bool value) { GL::setFeature(GL::Feature::FaceCulling, value); });
    set(_isMirrored, isMirrored,
        [](bool value) { GL::setFrontFace(value ? GL::FrontFace::ClockWise : GL::FrontFace::CounterClockWise); });
}

void PassState::end() { apply(PipelineHeader{}, false); }

} // namespace VantrelEngine
