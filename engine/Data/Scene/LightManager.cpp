#include <Vantrel/EngineData/LightManager.h>

#include <algorithm>
#include <cmath>

#include <Corrade/Containers/GrowableArray.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>
#include <Vantrel/EngineData/ViewManager.h>

#include "Data/Scene/ShadowFit.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Not for what is not a number.
bool isLength(Float number) { return number > 0.0f && std::isfinite(number); }

} // namespace

LightManager::LightManager(std::size_t capacity): ComponentManager{"light", capacity, 3} {}

UnsignedInt LightManager::cascadeCount(Id component) const {
    const Float count = _shadowParameters[slot(component)].w();
    // Also false for what is not a number.
    return count >= 1.0f && count < 4294967296.0f ? UnsignedInt(count) : 0;
}

bool LightManager::hasShadow(Id component) const {
    return _parameters[slot(component)].z() > 0.5f && isLength(_shadowRange[slot(component)]);
}

void LightManager::setupShadows(DynamicSceneGraph& scene, ViewManager& views, Id view) {
    arrayClear(_shadows);
    const auto spots = lightsOfType(LightType::Spot), suns = lightsOfType(LightType::Sun);
    for(const Id light: components().slice(spots.first(), spots.second()))
        if(hasShadow(light))
            arrayAppend(_shadows,
                LightShadow{light,
                    spotShadow(
                        scene.absoluteTransformationSafe(object(light)), parameters(light).x(), shadowRange(light))});

    const Float near = views.near(view);
    const Matrix4& projection = views.projectionMatrix(view);
    if(!isLength(near) || !isLength(projection[0][0]) || !isLength(projection[1][1])) return;
    for(const Id light: components().slice(suns.first(), suns.second())) {
        const Float far = std::min(views.far(view), shadowRange(light));
        if(!hasShadow(light) || !(far > near)) continue;
        const DualQuaternion transformation = scene.absoluteTransformationSafe(object(light));
        const UnsignedInt count = std::clamp(cascadeCount(light), 1u, MaxCascades);
        Float begin = near;
        for(UnsignedInt i = 0; i != count; ++i) {
            const Float end = sliceEnd(i, count, near, far);
            const FrustumCorners corners = frustumCorners(views.viewTransform(view), projection, begin, end);
            arrayAppend(_shadows,
                LightShadow{
                    light, sunShadow(transformation, corners, shadowRange(light), shadowParameters(light).z())});
            begin = end;
        }
    }
}

} // namespace VantrelEngine
