#include "AssetCompiler.h"

#include <algorithm>

#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Quaternion.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <Vantrel/EngineData/ValueAccess.h>

#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// A name, and the id of a UUID with its terminator or a short one.
constexpr std::size_t BytesPerName = 16;
constexpr std::size_t BytesPerUuid = 37;
constexpr std::size_t BytesPerShortId = 4;

Containers::StringView viewOf(const std::string& text) { return {text.data(), text.size()}; }

void setName(NameManager& names, Id object, Containers::StringView name) {
    if(names.nameOf(object) != name) names.setName(object, name);
}

} // namespace

AssetCompiler::~AssetCompiler() = default;

template<class Function> void AssetCompiler::forEachObject(Function&& function) {
    const JsonValue* const objects = ValueAccess{data().project()}["objects"].value();
    if(!objects || !objects->IsObject()) return;
    _objectIds.reserve(objects->MemberCount());
    for(auto member = objects->MemberBegin(); member != objects->MemberEnd(); ++member)
        function(_objectIds[{member->name.GetString(), member->name.GetStringLength()}], member->value);
}

bool AssetCompiler::compileAll(bool compileComponents) {
    begin();
    forEachObject([&](ObjectNode& node, const JsonValue& json) {
        list(node, json, compileComponents ? Part::Everything : Part::WithoutComponents);
    });
    compileListed();
    finish();
    return true;
}

bool AssetCompiler::compileObjects(Containers::ArrayView<const Containers::StringView> ids, bool compileComponents) {
    const ProjectFile& project = data().project();
    begin();
    for(const Containers::StringView id: ids) {
        if(const JsonValue* const json = project.member("objects", id))
            list(_objectIds[id], *json, compileComponents ? Part::Everything : Part::WithoutComponents);
        else if(ObjectNode* const node = _objectIds.find(id))
            deleteObject(*node);
    }
    compileListed();
    finish();
    return true;
}

void AssetCompiler::setPending(Containers::StringView id, bool withComponents) {
    ObjectNode& node = _objectIds[id];
    if(node.pending == Part::None) ++_pendingCount;
    node.pending = std::max(node.pending, withComponents ? Part::Everything : Part::WithoutComponents);
    data().scene().setAssetTypeDirty(true);
    if(node.isListedAsPending) return;
    node.isListedAsPending = true;
    _pending.push_back(&node);
}

void AssetCompiler::setWritten(Containers::StringView id) {
    ObjectNode* const node = _objectIds.find(id);
    if(node && node->pending == Part::WithoutComponents) forgetPending(*node);
}

void AssetCompiler::forgetProblems(const ObjectNode& node) {
    _problems.forgetObject(node.id);
    _problems.forgetComponents(node.id);
}

void AssetCompiler::forgetPending(ObjectNode& node) {
    if(node.pending == Part::None) return;
    node.pending = Part::None;
    --_pendingCount;
}

void AssetCompiler::setAllPending() {
    _isAllPending = true;
    data().scene().setAssetTypeDirty(true);
}

bool AssetCompiler::compilePending() {
    begin();
    Batch batch;
    if(_isAllPending)
        sortAll(batch);
    else
        sortPending(batch);
    _pending.clear();
    _isAllPending = false;
    // What stays goes to its place first, and what is new comes when the place of what was deleted is free.
    for(const ObjectNode* const node: batch.gone) listChildren(*node);
    for(const Item& item: batch.added) item.node->isLater = true;
    compileListed();
    for(ObjectNode* const node: batch.gone) deleteObject(*node);
    for(const Item& item: batch.added) item.node->isLater = false;
    for(const Item& item: batch.added) list(*item.node, *item.json, Part::Everything);
    compileListed();
    finish();
    return true;
}

// Lists what is in the scene already.
void AssetCompiler::sortPending(Batch& batch) {
    const ProjectFile& project = data().project();
    for(ObjectNode* const node: _pending) {
        node->isListedAsPending = false;
        const JsonValue* const json = project.member("objects", viewOf(node->id));
        if(node->pending == Part::None && json) continue;
        node->isGone = !json;
        if(!json)
            batch.gone.push_back(node);
        else if(runtimeObject(*node))
            list(*node, *json, node->pending);
        else
            batch.added.push_back({node, json});
    }
}

void AssetCompiler::sortAll(Batch& batch) {
    _objectIds.forEach([](ObjectNode& node) {
        node.isListedAsPending = false;
        node.isGone = true;
    });
    forEachObject([&](ObjectNode& node, const JsonValue& json) {
        node.isGone = false;
        if(runtimeObject(node))
            list(node, json, Part::Everything);
        else
            batch.added.push_back({&node, &json});
    });
    _objectIds.forEach([&](ObjectNode& node) {
        if(node.isGone) batch.gone.push_back(&node);
    });
}

// Lists those that stay in the document without their parent.
void AssetCompiler::listChildren(const ObjectNode& parent) {
    const Scene& scene = data().scene().main();
    const Id object = runtimeObject(parent);
    if(!object) return;
    for(Id child = scene.firstChild(object); child != NoObject; child = scene.nextSibling(child)) {
        ObjectNode* const node = child < _nodes.size() ? _nodes[child] : nullptr;
        if(!node) continue;
        if(const JsonValue* const json = data().project().member("objects", viewOf(node->id)))
            list(*node, *json, Part::WithoutComponents);
    }
}

Id AssetCompiler::objectOf(Containers::StringView id) const {
    const ObjectNode* const node = _objectIds.find(id);
    return node ? runtimeObject(*node) : RootObject;
}

// An object may have gone with its ancestor, and its id to another object.
Id AssetCompiler::runtimeObject(const ObjectNode& node) const {
    const bool isThere = node.object != RootObject && node.object < _nodes.size() && _nodes[node.object] == &node &&
        data().scene().main().isValid(node.object);
    return isThere ? node.object : RootObject;
}

void AssetCompiler::begin() {
    const Scene& scene = data().scene().main();
    _listed.clear();
    _isAnythingChanged = false;
    _changedAspects = 0;
    _meshCount = scene.meshes.size();
    _lightCount = scene.lights.size();
}

void AssetCompiler::list(ObjectNode& node, const JsonValue& json, Part part) {
    if(node.wanted == Part::None) _listed.push_back({&node, &json});
    node.json = &json;
    node.wanted = std::max(node.wanted, part);
}

void AssetCompiler::deleteObject(ObjectNode& node) {
    Scene& scene = data().scene().main();
    if(const Id object = runtimeObject(node)) {
        for(Id i = object; i != NoObject; i = scene.nextInTree(i, object)) {
            data().deselectObject(i);
            data().marks().removed(i);
            if(ObjectNode* const descendant = i < _nodes.size() ? _nodes[i] : nullptr) {
                _nodes[i] = nullptr;
                descendant->object = RootObject;
                descendant->forgetUses();
                forgetProblems(*descendant);
                // Without its ancestor it goes to the root, in the next round.
                if(i != object && data().project().member("objects", viewOf(descendant->id)))
                    setPending(viewOf(descendant->id), true);
            }
            scene.objectIds.setName(i, "");
            scene.objectNames.setName(i, "");
            scene.skinNames.setName(i, "");
        }
        scene.deleteObjects(object);
        _isAnythingChanged = true;
    }
    forgetProblems(node);
    forgetPending(node);
    if(node.object < _nodes.size() && _nodes[node.object] == &node) _nodes[node.object] = nullptr;
    // Whoever still lists the node takes it out later.
    if(!node.isListedAsPending && node.wanted == Part::None) _objectIds.erase(viewOf(node.id));
}

void AssetCompiler::reserve() {
    EditorData& data = this->data();
    Scene& scene = data.scene().main();
    const std::size_t added = std::size_t(std::count_if(_listed.begin(), _listed.end(),
        [this](const Item& item) { return !item.node->wasCompiled && runtimeObject(*item.node) == RootObject; }));
    if(scene.unusedCapacity() < added)
        scene.reallocateCapacity(std::min(scene.size() + added, MaxObjects + 1), scene.componentsCapacity());

    const JsonValue* const objects = ValueAccess{data.project()}["objects"].value();
    const std::size_t names = (objects && objects->IsObject() ? objects->MemberCount() : 0) + 1;
    const std::size_t bytesPerId = data.objectIdMode == 1 ? BytesPerUuid : BytesPerShortId;
    scene.objectNames.allocate(names, BytesPerName);
    scene.objectIds.allocate(names, bytesPerId);
    scene.skinNames.allocate(names, bytesPerId);
    for(NameManager* const manager: {&scene.objectNames, &scene.objectIds, &scene.skinNames}) manager->setSize(names);
}

void AssetCompiler::compileListed() {
    reserve();
    // Ancestors are added to the list while it is walked.
    for(std::size_t i = 0; i != _listed.size(); ++i) compileWithAncestors(Item{_listed[i]});
}

// Now that all others are in their places.
void AssetCompiler::placeMisplaced() {
    Scene& scene = data().scene().main();
    for(const ObjectNode* const node: _misplaced) {
        const Id object = runtimeObject(*node);
        if(!object || !node->parent) continue;
        scene.reparent(object, runtimeObject(*node->parent));
        data().marks().moved(object);
    }
    _misplaced.clear();
}

void AssetCompiler::compileWithAncestors(const Item& item) {
    if(item.node->wasCompiled) return;
    _stack.assign(1, item);
    while(!_stack.empty()) {
        const Item top = _stack.back();
        top.node->isUnderWay = true;
        if(compileParentFirst(top)) continue;
        compileObject(top);
        top.node->isUnderWay = false;
        top.node->wasCompiled = true;
        _stack.pop_back();
    }
}

// Finds the object's parent. True where the parent was put on the stack, because it is not in its place yet.
bool AssetCompiler::compileParentFirst(const Item& item) {
    item.node->parent = nullptr;
    _problems.forgetObject(item.node->id);
    const ProjectFile& project = data().project();
    const Containers::StringView id =
        ValueAccess{project}["objects"].withValue(viewOf(item.node->id), *item.json)["parent"].readValue().asString();
    if(id.isEmpty()) return false;
    ObjectNode* parent = _objectIds.find(id);
    if(parent && parent->isLater) {
        item.node->parent = parent;
        _misplaced.push_back(item.node);
        return false;
    }
    const bool isReady = parent && !parent->isUnderWay && !parent->isGone &&
        (parent->wasCompiled || (parent->wanted == Part::None && runtimeObject(*parent)));
    if(isReady) {
        item.node->parent = parent;
        return false;
    }
    if(parent && parent->isUnderWay) {
        _problems.add(item.node->id, -1, "its parents lead back to itself; it is at the root");
        project.warnOnce("objects/" + item.node->id + ": its parents lead back to itself; it is at the root");
        return false;
    }
    const bool isListed = parent && parent->wanted != Part::None;
    const JsonValue* const json = isListed ? parent->json : project.member("objects", id);
    if(!json) {
        _problems.add(item.node->id, -1, "its parent does not exist; it is at the root");
        project.warnOnce("objects/" + item.node->id + "/parent: there is no object \"" +
            std::string{id.data(), id.size()} + "\", the root is taken");
        _waiting[{id.data(), id.size()}].insert(item.node->id);
        return false;
    }
    if(!parent) parent = &_objectIds[id];
    list(*parent, *json, runtimeObject(*parent) ? Part::WithoutComponents : Part::Everything);
    _stack.push_back({parent, json});
    return true;
}

// Lists those that waited for an object that is there now. Whether they still want it, their parent key says.
void AssetCompiler::listWaiting(const ObjectNode& parent) {
    if(_waiting.empty()) return;
    const auto found = _waiting.find(parent.id);
    if(found == _waiting.end()) return;
    for(const std::string& id: found->second)
        if(const JsonValue* const json = data().project().member("objects", viewOf(id))) {
            ObjectNode& child = _objectIds[viewOf(id)];
            list(child, *json, runtimeObject(child) ? Part::WithoutComponents : Part::Everything);
        }
    _waiting.erase(found);
}

void AssetCompiler::compileObject(const Item& item) {
    ObjectNode& node = *item.node;
    const ValueAccess json = ValueAccess{data().project()}["objects"].withValue(viewOf(node.id), *item.json);
    if(!placeObject(node, json)) return forgetPending(node);
    ++_compiledObjectCount;
    _isAnythingChanged = true;
    const ValueAccess components = json["components"];
    if(components.exists() && !components.value()->IsArray()) {
        _problems.add(node.id, -1, "its components are no list");
        data().project().warnOnce(components.description() + ": not usable, expected is an array");
    }
    if(node.wanted == Part::Everything) {
        ++_compiledComponentsCount;
        compileComponents(node, json);
    }
    if(node.pending <= node.wanted) forgetPending(node);
}

bool AssetCompiler::placeObject(ObjectNode& node, const ValueAccess& json) {
    Scene& scene = data().scene().main();
    const Id parent = node.parent ? runtimeObject(*node.parent) : RootObject;
    node.object = runtimeObject(node);
    const bool isNew = !node.object;
    if(isNew) {
        node.object = scene.addObject(parent);
        if(!node.object) {
            _problems.add(node.id, -1, "the scene is full");
            return false;
        }
        if(_nodes.size() <= node.object) _nodes.resize(node.object + 1u);
        _nodes[node.object] = &node;
        listWaiting(node);
    } else if(scene.parent(node.object) != parent) {
        // A parent that is still below the object waits for one in between to be moved.
        const bool isBelow = scene.isInSubtree(parent, node.object);
        scene.reparent(node.object, isBelow ? RootObject : parent);
        if(isBelow) _misplaced.push_back(&node);
        data().marks().moved(node.object);
    }
    setName(scene.objectIds, node.object, viewOf(node.id));
    if(isNew) data().marks().added(node.object);
    setName(scene.objectNames, node.object, json["name"].readValue().asString());
    setName(scene.skinNames, node.object, json["skin"].readValue().asString("", JsonObject::WhenMissing::Accept));

    const Vector3 translation = json["translation"].readValue().asVector3();
    const Quaternion rotation = json["rotation"].readValue().asQuaternion();
    scene.localTransformation(node.object) = DualQuaternion::from(rotation, translation);
    scene.localScaling(node.object) = json["scaling"].readValue().asScaling();
    scene.setDirty(node.object);
    return true;
}

void AssetCompiler::compileComponents(ObjectNode& node, const ValueAccess& json) {
    Scene& scene = data().scene().main();
    _candidates.reset(scene, node.object);
    node.forgetUses();
    _problems.forgetComponents(node.id);

    const ValueAccess list = json["components"];
    const std::size_t count = list.value() && list.value()->IsArray() ? list.value()->Size() : 0;
    for(std::size_t i = 0; i != count; ++i) {
        const ValueAccess component = list[i];
        if(!component.value()->IsObject()) {
            _problems.add(node.id, int(i), "it is no object");
            data().project().warnOnce(component.description() + ": not an object, skipped");
            continue;
        }
        const Containers::StringView type = component["type"].readValue().asString();
        if(type.isEmpty()) {
            _problems.add(node.id, int(i), "it has no type");
            continue;
        }
        ComponentTask task{*this, data(), scene, node, component, int(i), _candidates.take(scene, type)};
        const ComponentType* const known = componentType(type);
        if(!known)
            compileJavaScript(task);
        else if(known->compile)
            known->compile(task);
        else
            task.problem("components of its type are not compiled yet");
    }
    dropCandidates(node.object);
}

void AssetCompiler::dropCandidates(Id object) {
    Scene& scene = data().scene().main();
    for(const ComponentCandidates::Candidate& candidate: _candidates.rest()) {
        if(candidate.manager == Scene::JavaScript && candidate.component < _jsComponentOrigins.size())
            _jsComponentOrigins[candidate.component] = {};
        scene.deleteComponent(object, candidate.manager, candidate.component);
    }
}

void AssetCompiler::finish() {
    EditorSceneData& sceneData = data().scene();
    placeMisplaced();
    for(const Item& item: _listed) {
        item.node->wanted = Part::None;
        item.node->wasCompiled = false;
        item.node->parent = nullptr;
    }
    if(sceneData.main().meshes.size() != _meshCount) _changedAspects |= 1u << unsigned(Aspect::Draws);
    if(sceneData.main().lights.size() != _lightCount) _changedAspects |= 1u << unsigned(Aspect::Lights);
    for(std::size_t aspect = 0; aspect != AspectCount; ++aspect)
        if(_changedAspects >> aspect & 1) sceneData.revisions().touch(Aspect(aspect));
    if(_isAnythingChanged) sceneData.revisions().touch();
    sceneData.setAssetTypeDirty(false);
}

} // namespace VantrelEngine
