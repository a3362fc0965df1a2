#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include <Corrade/Containers/Optional.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Vector4.h>

#include "Renderer/Environment/EnvironmentBaker.h"

namespace VantrelEngine {

struct EnvironmentBaking;
struct SceneEnvironment;

// The surroundings of a scene for shaders: Environment.glsl reads what this writes.
class EnvironmentLight {
public:
    // Needs a GL context. No surroundings at first.
    explicit EnvironmentLight() = default;

    // Takes over what a scene says of its surroundings. Costs something only where its image is another one; then what
    // surfaces receive and mirror is computed, unless it is known from before.
    void update(const SceneEnvironment& environment, const EnvironmentBaking& baking);

    // Whether there are surroundings to be seen; while new ones are under way, it is those from before.
    bool isThere() const { return bool(_surroundings); }
    bool isBackground() const { return isThere() && _isBackground; }
    bool isUnderWay() const { return _baker.isUnderWay(); }
    // The uniform "environment".
    Magnum::Vector4 uniform() const;
    // To their units, if they are there.
    void bind();

    // How often something was computed, from the construction on.
    std::size_t bakeCount() const { return _bakeCount; }

private:
    void changeImage(const SceneEnvironment& environment, const EnvironmentBaking& baking);
    void show(const EnvironmentPicture& picture, const EnvironmentBake& bake);
    void showLevel(Magnum::Int level, const EnvironmentPicture& picture);
    const EnvironmentBake* find(const EnvironmentBaking& baking);
    void keep(EnvironmentBake bake);
    void write(const EnvironmentBaking& baking, const EnvironmentBake& bake);

    Magnum::Float _intensity = 1.0f;
    Magnum::Deg _rotation{0.0f};
    bool _isBackground = true;
    // Of the image; 0 for none.
    std::uint32_t _revision = 0;

    EnvironmentBaker _baker;
    // Of what is under way, or shown.
    std::uint64_t _key = 0;
    // By key; the last one was used last.
    std::vector<std::pair<std::uint64_t, EnvironmentBake>> _kept;
    std::size_t _bakeCount = 0;
    bool _isWarned = false;

    // The picture of the surroundings and smaller ones, then what mirrors show, as one row of levels.
    Corrade::Containers::Optional<Magnum::GL::Texture2D> _surroundings, _irradiance;
    // Where the row goes over from the ones to the others.
    Magnum::Int _firstBakedLevel = 0;
};

} // namespace VantrelEngine
