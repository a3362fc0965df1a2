#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/TexelBuffer.h"

namespace VantrelEngine {

// The values of all materials for shaders: a row each, with a value for each parameter of its pipeline, a texture as its
// index. First those of the scene by index, then the custom ones.
class MaterialBuffer {
public:
    // An index for a material that is no scene's: the largest ones.
    Id addCustom();

    // All of the scene; the custom ones stay.
    void updateScene(Corrade::Containers::ArrayView<const SceneMaterial> materials);
    // One of the scene's or a custom one. What has no index is left out.
    void update(Id index, const SceneMaterial& material);

    // Zero for what is not there.
    Magnum::Vector4 value(Id index, std::size_t parameter) const;

    // All of them, as function(pipeline, values).
    template<class Function> void forEach(Function function) const {
        for(std::size_t row = 0; row != rowCount(); ++row)
            function(_pipelines[row],
                Corrade::Containers::ArrayView<const Magnum::Vector4>{_values.data() + row * _stride, _stride});
    }

    // Values from row to row.
    std::size_t stride() const { return _stride; }
    void bind();

    std::uint64_t uploadedBytes() const { return _buffer.writtenBytes(); }

private:
    std::size_t rowCount() const { return _sceneCount + _customs.size(); }
    // As many as there are rows for what is not there.
    std::size_t row(Id index) const;
    void writeRow(std::size_t row, const SceneMaterial& material);
    void rebuild(std::size_t stride, std::size_t sceneCount);
    void upload();

    std::size_t _stride = 1;
    std::size_t _sceneCount = 1;
    // Kept, since their rows move.
    std::vector<SceneMaterial> _customs;
    // By row.
    std::vector<Id> _pipelines = std::vector<Id>(1);
    // What is wanted, and what was uploaded.
    std::vector<Magnum::Vector4> _values = std::vector<Magnum::Vector4>(1), _uploaded;
    TexelBuffer _buffer{Magnum::GL::BufferTextureFormat::RGBA32F, "Renderer materials"};
};

} // namespace VantrelEngine
