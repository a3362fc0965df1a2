#include <algorithm>
#include <iterator>

#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Vector4.h>

#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;
using namespace Magnum;

namespace {

struct LightProperties {
    explicit LightProperties(const ValueAccess& json):
        color{json["color"].readValue().asVector3(Vector3{1.0f}), json["intensity"].readValue().asFloat(1.0f)},
        type{json["type"].readValue().asString("point")}, parameters{json["outerAngle"].readValue().asFloat(),
                                                              json["innerAngle"].readValue().asFloat(),
                                                              json["shadows"].readValue().asBool() ? 1.0f : 0.0f},
        shadowRange{json["shadowRange"].readValue().asFloat()},
        shadowParameters{json["shadowBias"].readValue().asFloat(), json["shadowNormalBias"].readValue().asFloat(),
            json["shadowTexelSize"].readValue().asFloat(),
            float(json["cascadeCount"].readValue().asInt(0, JsonObject::WhenMissing::Accept))} {}

    Vector4 color;
    Containers::StringView type;
    Vector3 parameters;
    Float shadowRange;
    Vector4 shadowParameters;
};

} // namespace

void compileLight(ComponentTask& task) {
    const LightProperties light{task.json["light"]};
    LightManager& lights = task.scene.lights;
    if(!task.ensureComponent(lights)) return;
    task.changed(Aspect::Lights);
    lights.color(task.component) = light.color;
    lights.parameters(task.component) = light.parameters;
    lights.shadowRange(task.component) = light.shadowRange;
    lights.shadowParameters(task.component) = light.shadowParameters;

    constexpr Containers::StringView types[]{"point"_s, "spot"_s, "sun"_s};
    const auto* const type = std::find(std::begin(types), std::end(types), light.type);
    if(type != std::end(types)) {
        lights.setLightType(task.component, LightType(type - std::begin(types)));
        lights.setActive(task.component, task.isActive());
        return;
    }
    if(task.problem("unknown light type " + std::string{light.type.data(), light.type.size()}))
        Utility::Error{} << "Unknown light type" << light.type;
    lights.setActive(task.component, false);
}

} // namespace VantrelEngine
