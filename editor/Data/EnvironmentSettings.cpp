#include "Data/EnvironmentSettings.h"

#include <algorithm>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ValueAccess.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

SceneEnvironment readEnvironment(const ProjectFile& file, const SceneResources& resources, const ResourceMaps& maps) {
    const ValueAccess settings = ValueAccess{file}["settings"]["rendering"]["environment"];
    SceneEnvironment environment;
    environment.intensity = std::max(settings["intensity"].readValue().asFloat(environment.intensity), 0.0f);
    environment.rotation = Deg{settings["rotation"].readValue().asFloat()};
    environment.isBackground = settings["background"].readValue().asBool(environment.isBackground);

    const Containers::StringView image = settings["image"].readValue().asString();
    if(image.isEmpty()) return environment;
    const ResourceNode* const node = maps.find(ResourceKind::Image, image);
    if(node && node->index)
        environment.image = &resources.images[node->index];
    else
        file.warnOnce("settings/rendering/environment/image: images/" + std::string{image} + " is not there");
    return environment;
}

} // namespace VantrelEngine
