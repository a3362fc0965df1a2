#pragma once

#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector4.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

class ViewManager;

enum class LightType : Magnum::UnsignedByte { Point, Spot, Sun };

// One shadow map.
struct LightShadow {
    // Component of the light.
    Id light;
    // From the scene's space to the map's clip space, -1 to 1 in each direction, the light at the near plane.
    Magnum::Matrix4 matrix;
    // Texels along an edge that the light asks for: a power of two.
    Magnum::Int resolution;
};

// Lights in the scene ("light"). They shine along the negative y axis of their objects. Active ones are grouped by type.
class CORRADE_VISIBILITY_EXPORT LightManager: public ComponentManager {
public:
    explicit LightManager(std::size_t capacity = 0);

    // Red, green, blue, and the intensity.
    Magnum::Vector4& color(Id component) { return _color[slot(component)]; }
    // Outer and inner angle in degrees, from the light's axis; 1 with shadows, else 0.
    Magnum::Vector3& parameters(Id component) { return _parameters[slot(component)]; }
    // Scene units.
    Magnum::Float& shadowRange(Id component) { return _shadowRange[slot(component)]; }
    // How far places are moved before they are looked up: towards the light, and along the normal of the surface; the
    // size of a texel, all three in scene units; and the number of cascades.
    Magnum::Vector4& shadowParameters(Id component) { return _shadowParameters[slot(component)]; }
    // The number of cascades as a whole number; 0 where it is none.
    Magnum::UnsignedInt cascadeCount(Id component) const;

    // A new light is a point light.
    LightType lightType(Id component) const { return LightType(groupOf(component)); }
    void setLightType(Id component, LightType type) { setGroupOf(component, std::size_t(type)); }

    // First slot and the one past the last of the active lights of a type; valid as long as slots are.
    Corrade::Containers::Pair<Id, Id> lightsOfType(LightType type) const { return groupRange(std::size_t(type)); }

    // Fits the shadow maps of all active lights to what a view sees, as of the last update of the views; the graph, the one
    // of the lights, computes what is dirty. The view may belong to another graph. Linear in the lights; done again when
    // lights or the view changed.
    //
    // A point light gets PointFaces maps, along the positive and negative x, y and z axis of the scene, and a spot one, of
    // its cone, up to the shadow range. A sun gets one for each of its cascades (at least one, and at most MaxCascades),
    // the nearest first, from the view's near plane up to the shadow range; things closer to the sun by up to the range
    // throw shadows into it. These stay as they are while the view moves a little, and their texels always. A light has
    // none that has no shadows or whose range is not above 0 and finite; nor has a sun for a view that sees nothing nearer
    // than that, or whose projection is none.
    //
    // They ask for texels of the size that the light says, those of points and spots at the end of their range, from
    // 128 along an edge to 512 of points, 1024 of spots and 2048 of suns; for half of the latter where it says none.
    void setupShadows(DynamicSceneGraph& scene, ViewManager& views, Id view);
    static constexpr Magnum::UnsignedInt MaxCascades = 4;
    static constexpr Magnum::UnsignedInt PointFaces = 6;

    // As of the last setup: those of the points, of the spots, then of the suns; those of one light follow each other.
    Corrade::Containers::ArrayView<const LightShadow> shadows() const { return _shadows; }

private:
    bool hasShadow(Id component) const;
    void addShadow(Id light, const Magnum::Matrix4& matrix, Magnum::Float edge, Magnum::Int largest);
    void setupSun(DynamicSceneGraph& scene, ViewManager& views, Id view, Id light);

    Field<Magnum::Vector4> _color{*this, Magnum::Vector4{1.0f}};
    Field<Magnum::Vector3> _parameters{*this};
    Field<Magnum::Float> _shadowRange{*this};
    Field<Magnum::Vector4> _shadowParameters{*this};
    Corrade::Containers::Array<LightShadow> _shadows;
};

}
