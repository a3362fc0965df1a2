#include "Utilities/DocumentPlaces.h"

#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "Import/References.h"

namespace VantrelEngine {

namespace {

ObjectPlacement localPlacement(const ProjectFile& project, const std::string& id) {
    const ValueAccess object = ValueAccess{project}["objects"][id];
    return {object["rotation"].readValue().asQuaternion(), object["translation"].readValue().asVector3(),
        object["scaling"].readValue().asScaling()};
}

} // namespace

const ObjectPlacement& DocumentPlaces::of(const std::string& id) {
    // Without recursion: there may be as many ancestors as objects.
    std::vector<std::string> unknown;
    std::string ancestor = id;
    while(!_places.count(ancestor)) {
        const JsonValue* const object = _project.member("objects", ancestor);
        if(!object) break;
        unknown.push_back(ancestor);
        ancestor = textMember(*object, "parent");
    }
    for(auto object = unknown.rbegin(); object != unknown.rend(); ++object) {
        const auto parent = _places.find(ancestor);
        const ObjectPlacement local = localPlacement(_project, *object);
        _places.emplace(*object, parent == _places.end() ? local : placementInScene(local, parent->second));
        ancestor = *object;
    }
    return _places.at(id);
}

} // namespace VantrelEngine
