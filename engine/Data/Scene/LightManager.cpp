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

// Texels along an edge.
constexpr Int Smallest = 128, LargestOfPoint = 512, LargestOfSpot = 1024, LargestOfSun = 2048;

// The power of two of which each is at most that long.
Int resolutionFor(Float edge, Float texelSize, Int largest) {
    if(!isLength(texelSize)) return largest / 2;
    Int resolution = Smallest;
    while(resolution != largest && edge > texelSize * Float(resolution)) resolution *= 2;
    return resolution;
}

} // namespace

LightManager::LightManager(std::size_t capacity): ComponentManager{"light", capacity, 3} { hideWithObjects(); }

UnsignedInt LightManager::cascadeCount(Id component) const {
    const Float count = _shadowParameters[slot(component)].w();
    // Also false for what is not a number.
    return count >= 1.0f && count < 4294967296.0f ? UnsignedInt(count) : 0;
}

bool LightManager::hasShadow(Id component) const {
    return _parameters[slot(component)].z() > 0.5f && isLength(_shadowRange[slot(component)]);
}

void LightManager::addShadow(Id light, const Matrix4& matrix, Float edge, Int largest) {
    arrayAppend(_shadows, LightShadow{light, matrix, resolutionFor(edge, _shadowParameters[slot(light)].z(), largest)});
}

void LightManager::setupShadows(DynamicSceneGraph& scene, ViewManager& views, Id view) {
    arrayClear(_shadows);
    const auto points = lightsOfType(LightType::Point), spots = lightsOfType(LightType::Spot),
               suns = lightsOfType(LightType::Sun);
    for(const Id light: components().slice(points.first(), points.second())) {
        if(!hasShadow(light)) continue;
        const Float range = shadowRange(light);
        const Vector3 place = scene.absoluteTransformationSafe(object(light)).translation();
        for(UnsignedInt face = 0; face != PointFaces; ++face)
            addShadow(light, pointShadow(place, face, range), 2.0f * range, LargestOfPoint);
    }
    for(const Id light: components().slice(spots.first(), spots.second())) {
        if(!hasShadow(light)) continue;
        const Float range = shadowRange(light);
        const Matrix4 matrix =
            spotShadow(scene.absoluteTransformationSafe(object(light)), parameters(light).x(), range);
        addShadow(light, matrix, 2.0f * range / matrix.row(0).xyz().length(), LargestOfSpot);
    }
    for(const Id light: components().slice(suns.first(), suns.second()))
        if(hasShadow(light)) setupSun(scene, views, view, light);
}

void LightManager::setupSun(DynamicSceneGraph& scene, ViewManager& views, Id view, Id light) {
    const Float near = views.near(view), far = std::min(views.far(view), shadowRange(light));
    const Matrix4& projection = views.projectionMatrix(view);
    if(!isLength(near) || !isLength(projection[0][0]) || !isLength(projection[1][1]) || !(far > near)) return;
    const DualQuaternion transformation = scene.absoluteTransformationSafe(object(light));
    const UnsignedInt count = std::clamp(cascadeCount(light), 1u, MaxCascades);
    Float begin = near;
    for(UnsignedInt i = 0; i != count; ++i) {
        const Float end = sliceEnd(i, count, near, far);
        const SliceSphere sphere = sliceSphere(views.viewTransform(view), projection, begin, end);
        const Matrix4 matrix = sunShadow(transformation, sphere, shadowRange(light));
        addShadow(light, matrix, 2.0f / matrix.row(0).xyz().length(), LargestOfSun);
        begin = end;
    }
}

} // namespace VantrelEngine
