#include "Utilities/ObjectEdits.h"

#include <algorithm>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "Data/ProjectSession.h"
#include "Import/NewIds.h"
#include "Utilities/EditState.h"
#include "Utilities/ObjectPlacement.h"
#include "Utilities/SiblingNames.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr const char* Axes[]{"0", "1", "2"};

Containers::StringView idOf(const Scene& scene, Id object) { return scene.objectIds.nameOf(object); }

Containers::StringView nameOf(const Scene& scene, Id object) {
    const Containers::StringView name = scene.objectNames.nameOf(object);
    return name.isEmpty() ? idOf(scene, object) : name;
}

ObjectPlacement placementOf(Scene& scene, Id object) {
    const DualQuaternion transformation = scene.absoluteTransformationSafe(object);
    return {transformation.rotation(), transformation.translation(), scene.absoluteScaling(object)};
}

void recordRotation(ProjectSession& session, const std::string& pointer, const Quaternion& rotation) {
    JsonAllocator& allocator = session.data().project().allocator();
    JsonValue array{rapidjson::kArrayType};
    for(const Float number: {rotation.vector().x(), rotation.vector().y(), rotation.vector().z(), rotation.scalar()})
        array.PushBack(double(number), allocator);
    session.changes().recordChange(pointer + "/rotation", &array, false);
}

// A factor that the document has as zero, and the engine reads as a little more, stays zero.
Vector3 withZeros(ProjectSession& session, const std::string& pointer, Vector3 scaling) {
    for(std::size_t i = 0; i != 3; ++i) {
        const JsonValue* const factor = session.data().project().valueByPointer(pointer + "/scaling/" + Axes[i]);
        if(factor && factor->IsNumber() && factor->GetDouble() == 0.0) scaling[i] = 0.0f;
    }
    return scaling;
}

void recordPlacement(ProjectSession& session, const std::string& pointer, const ObjectPlacement& placement) {
    session.changes().recordVector3(pointer + "/translation", placement.translation, false);
    recordRotation(session, pointer, placement.rotation);
    session.changes().recordVector3(pointer + "/scaling", withZeros(session, pointer, placement.scaling), false);
}

void reparent(ProjectSession& session, Id object, Id parent) {
    Scene& scene = session.data().scene().main();
    const std::optional<ObjectPlacement> placement =
        placementBelow(placementOf(scene, object), placementOf(scene, parent));
    const std::string pointer = objectPointer(idOf(scene, object));
    session.changes().recordString(pointer + "/parent", idOf(scene, parent), false);
    if(placement)
        recordPlacement(session, pointer, *placement);
    else
        Utility::Warning{} << nameOf(scene, object) << "keeps its local place below" << nameOf(scene, parent)
                           << Utility::Debug::nospace << ", which is scaled to nothing";
}

struct NewObjectKind {
    const char* name;
    // Of the component; null for none.
    const char* component;
    // So that what shines downwards shines on what stands at the origin.
    float height;
};

constexpr const char* SunText = R"({"type": "light", "active": true, "light": {"type": "sun", "color": [1, 1, 1],
    "intensity": 2, "outerAngle": 0, "innerAngle": 0, "shadows": true, "shadowRange": 50, "shadowBias": 0.01,
    "shadowNormalBias": 0.02, "shadowTexelSize": 0, "cascadeCount": 3}})";
constexpr const char* PointText = R"({"type": "light", "active": true, "light": {"type": "point", "color": [1, 1, 1],
    "intensity": 10, "outerAngle": 0, "innerAngle": 0, "shadows": false, "shadowRange": 20, "shadowBias": 0.01,
    "shadowNormalBias": 0.02, "shadowTexelSize": 0}})";
constexpr const char* SpotText = R"({"type": "light", "active": true, "light": {"type": "spot", "color": [1, 1, 1],
    "intensity": 20, "outerAngle": 35, "innerAngle": 25, "shadows": false, "shadowRange": 20, "shadowBias": 0.01,
    "shadowNormalBias": 0.02, "shadowTexelSize": 0}})";
constexpr const char* ViewText = R"({"type": "view", "active": true, "view": {"fov": 60, "near": 0.1, "far": 1000}})";

NewObjectKind kindOf(NewObject kind) {
    switch(kind) {
    case NewObject::Empty: break;
    case NewObject::Sun: return {"Sun", SunText, 3.0f};
    case NewObject::PointLight: return {"Point light", PointText, 2.0f};
    case NewObject::SpotLight: return {"Spot light", SpotText, 3.0f};
    case NewObject::View: return {"View", ViewText, 0.0f};
    }
    return {"Object", nullptr, 0.0f};
}

JsonValue textValue(Containers::StringView text, JsonAllocator& allocator) {
    return JsonValue{text.data() ? text.data() : "", rapidjson::SizeType(text.size()), allocator};
}

JsonValue numbers(std::initializer_list<double> values, JsonAllocator& allocator) {
    JsonValue array{rapidjson::kArrayType};
    for(const double value: values) array.PushBack(value, allocator);
    return array;
}

JsonValue objectOf(
    const NewObjectKind& kind, const std::string& name, Containers::StringView parent, JsonAllocator& allocator) {
    JsonValue components{rapidjson::kArrayType};
    if(kind.component) {
        JsonDocument component{&allocator};
        component.Parse(kind.component);
        components.PushBack(component, allocator);
    }
    JsonValue object{rapidjson::kObjectType};
    object.AddMember("name", textValue({name.data(), name.size()}, allocator), allocator)
        .AddMember("parent", textValue(parent, allocator), allocator)
        .AddMember("translation", numbers({0.0, double(kind.height), 0.0}, allocator), allocator)
        .AddMember("rotation", numbers({0.0, 0.0, 0.0, 1.0}, allocator), allocator)
        .AddMember("scaling", numbers({1.0, 1.0, 1.0}, allocator), allocator)
        .AddMember("components", components, allocator);
    return object;
}

} // namespace

std::string objectPointer(Containers::StringView id) { return "/objects/" + pointerToken(id); }

void renameObject(ProjectSession& session, Id object, const std::string& name) {
    const Scene& scene = session.data().scene().main();
    if(name == std::string{scene.objectNames.nameOf(object)} || !canEdit(session.editor().state())) return;
    session.changes().beginGroup();
    session.changes().recordString(objectPointer(idOf(scene, object)) + "/name", name, false);
    session.changes().commit();
}

std::vector<Id> topmostOf(const Scene& scene, const std::vector<Id>& objects) {
    std::vector<ObjectData> places;
    for(const Id object: objects) places.push_back(scene.objectData(object));
    std::sort(places.begin(), places.end(), [](const ObjectData& a, const ObjectData& b) { return a.index < b.index; });
    std::vector<Id> topmost;
    // What is below one follows it.
    std::size_t end = 0;
    for(const ObjectData& place: places) {
        if(place.index < end) continue;
        topmost.push_back(scene.toId(place.index));
        end = place.index + std::size_t{place.descendants} + 1;
    }
    return topmost;
}

std::string whyNotReparented(const Scene& scene, const std::vector<Id>& objects, Id parent) {
    for(const Id object: objects) {
        if(object == parent) return std::string{nameOf(scene, object)} + " cannot be attached to itself";
        if(parent != RootObject && scene.isInSubtree(parent, object))
            return std::string{nameOf(scene, object)} + " cannot be attached to " + std::string{nameOf(scene, parent)} +
                ", which is below it";
    }
    return {};
}

void reparentObjects(ProjectSession& session, const std::vector<Id>& objects, Id parent) {
    const Scene& scene = session.data().scene().main();
    if(!canEdit(session.editor().state()) || !whyNotReparented(scene, objects, parent).empty()) return;
    std::vector<Id> moved = topmostOf(scene, objects);
    moved.erase(std::remove_if(moved.begin(), moved.end(), [&](Id object) { return scene.parent(object) == parent; }),
        moved.end());
    if(moved.empty()) return;
    session.changes().beginGroup();
    for(const Id object: moved) reparent(session, object, parent);
    session.changes().commit();
}

void addObject(ProjectSession& session, NewObject kind, Id parent) {
    EditorData& data = session.data();
    if(!canEdit(session.editor().state())) return;
    if(!data.project().roomForObjects()) {
        Utility::Warning{} << "The project has as many objects as it can have," << MaxObjects;
        return;
    }
    const NewObjectKind description = kindOf(kind);
    SiblingNames names{data.scene().main()};
    names.announce(parent, description.name);
    const std::string name = names.take(parent, description.name);
    NewIds ids{data.project(), "objects", "object"};
    const std::string id = data.objectIdMode == 1 ? ids.uuidFromName(name) : ids.fromName(name);
    const Containers::StringView parentId = parent == RootObject ? "" : idOf(data.scene().main(), parent);
    session.changes().beginGroup();
    session.changes().recordWithParents(
        objectPointer(id), objectOf(description, name, parentId, data.project().allocator()), false);
    session.changes().commit();
    upToDate(session.editor().state());
    data.selectObject(session.compiler().objectOf(id), false);
}

} // namespace VantrelEngine
