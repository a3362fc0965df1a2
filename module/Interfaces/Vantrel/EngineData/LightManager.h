#pragma once

#include <Magnum/Math/Vector4.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

enum class LightType : Magnum::UnsignedByte { Point, Spot, Sun };

// Lights in the scene ("light"). They shine along the negative y axis of their objects. Active ones are grouped by type.
class CORRADE_VISIBILITY_EXPORT LightManager: public ComponentManager {
public:
    explicit LightManager(std::size_t capacity = 0);

    // Red, green, blue, and the intensity.
    Magnum::Vector4& color(Id component) { return _color[slot(component)]; }
    // Outer and inner angle in degrees; 1 with shadows, else 0.
    Magnum::Vector3& parameters(Id component) { return _parameters[slot(component)]; }
    // Scene units.
    Magnum::Float& shadowRange(Id component) { return _shadowRange[slot(component)]; }
    // Bias, bias along the normal, size of a texel, and number of cascades.
    Magnum::Vector4& shadowParameters(Id component) { return _shadowParameters[slot(component)]; }
    // The number of cascades as a whole number; 0 where it is none.
    Magnum::UnsignedInt cascadeCount(Id component) const;

    // A new light is a point light.
    LightType lightType(Id component) const { return LightType(groupOf(component)); }
    void setLightType(Id component, LightType type) { setGroupOf(component, std::size_t(type)); }

    // First slot and the one past the last of the active lights of a type; valid as long as slots are.
    Corrade::Containers::Pair<Id, Id> lightsOfType(LightType type) const { return groupRange(std::size_t(type)); }

private:
    Field<Magnum::Vector4> _color{*this, Magnum::Vector4{1.0f}};
    Field<Magnum::Vector3> _parameters{*this};
    Field<Magnum::Float> _shadowRange{*this};
    Field<Magnum::Vector4> _shadowParameters{*this};
};

}
