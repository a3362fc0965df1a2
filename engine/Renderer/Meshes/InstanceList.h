#pragma once

#include <cstdint>
#include <vector>

#include <Vantrel/EngineData/Types.h>

#include "Renderer/TexelBuffer.h"

namespace VantrelEngine {

// The slots that are drawn, for shaders. What was uploaded is kept for as long as it is the same.
class InstanceList {
public:
    // Uploads the slots where they are others than the last time, and binds them.
    void use(const std::vector<Id>& slots);

    std::uint64_t uploadedBytes() const { return _buffer.writtenBytes(); }

private:
    std::vector<Id> _uploaded;
    TexelBuffer _buffer{Magnum::GL::BufferTextureFormat::R16UI, "Renderer instances"};
};

} // namespace VantrelEngine
