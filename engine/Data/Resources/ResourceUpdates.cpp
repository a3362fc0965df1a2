#include "Data/Resources/ResourceUpdates.h"

#include <optional>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Assert.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "Data/Resources/MeshShape.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr std::size_t MaximumIndex = 65534;

template<auto list> std::size_t sizeOf(const SceneResources& scene) { return (scene.*list).size(); }
template<auto list> void resize(SceneResources& scene, std::size_t size) { (scene.*list).resize(size); }
// Without an id the slot is free.
template<auto list> void reset(SceneResources& scene, Id slot, const std::string& id) {
    (scene.*list)[slot] = {};
    (scene.*list)[slot].id = id;
}

struct Handler {
    unsigned (*compile)(ResourceContext&, ResourceNode&, const ResourceEntry&);
    // Of the list of the kind.
    std::size_t (*size)(const SceneResources&);
    void (*resize)(SceneResources&, std::size_t);
    void (*reset)(SceneResources&, Id, const std::string&);
    // Which ones, and what is in them; none for what no renderer has a copy of.
    std::optional<Aspect> listAspect, contentsAspect;
};

template<auto list>
constexpr Handler handler(unsigned (*compile)(ResourceContext&, ResourceNode&, const ResourceEntry&),
    std::optional<Aspect> listAspect, std::optional<Aspect> contentsAspect) {
    return {compile, sizeOf<list>, resize<list>, reset<list>, listAspect, contentsAspect};
}

template<auto list>
constexpr Handler handler(
    unsigned (*compile)(ResourceContext&, ResourceNode&, const ResourceEntry&), std::optional<Aspect> aspect = {}) {
    return handler<list>(compile, aspect, aspect);
}

// By kind.
constexpr Handler Handlers[ResourceKindCount]{handler<&SceneResources::images>(compileImage, Aspect::Images),
    handler<&SceneResources::textures>(compileTexture, Aspect::Textures),
    handler<&SceneResources::shaders>(compileShader, Aspect::Shaders),
    handler<&SceneResources::pipelines>(compilePipeline, Aspect::Pipelines),
    handler<&SceneResources::materials>(compileMaterial, Aspect::Materials),
    handler<&SceneResources::meshes>(compileMesh, Aspect::Meshes, Aspect::MeshData),
    handler<&SceneResources::skins>(compileSkin), handler<&SceneResources::animations>(compileAnimation),
    handler<&SceneResources::fonts>(compileFont, Aspect::Fonts)};

const Handler& handlerOf(ResourceKind kind) { return Handlers[std::size_t(kind)]; }

std::string textOf(const JsonValue& text) { return {text.GetString(), text.GetStringLength()}; }

} // namespace

ResourceUpdates::ResourceUpdates(const ProjectFile& file, const ResourceManager& files, SceneResources& scene,
    ResourceMaps& maps, SceneRevisions& revisions):
    _file{file},
    _revisions{revisions}, _context{files, scene, maps, {}, {}, 0, 0} {}

void ResourceUpdates::compileAll() {
    beginCompileAll();
    while(compileNext()) {
    }
}

void ResourceUpdates::beginCompileAll() {
    _isCompilingAll = true;
    _problems.clear();
    _context.sources.setReadingAgain(true);
    for(std::size_t i = 0; i != ResourceKindCount; ++i) markSection(ResourceKind(i));
    begin();
}

bool ResourceUpdates::compileNext() {
    if(step()) return true;
    _context.sources.setReadingAgain(false);
    _isCompilingAll = false;
    return false;
}

std::size_t ResourceUpdates::remaining() const {
    std::size_t count = _toCompile.size() - _next;
    for(const Kind& kind: _kinds) count += kind.marked.size();
    return count;
}

void ResourceUpdates::markSection(ResourceKind kind) {
    _context.maps.of(kind).forEach([&](const ResourceNode& node) {
        if(node.index) compile(kind, node.id);
    });
    const std::string pointer = '/' + std::string{resourceSection(kind)};
    const JsonValue* const section = _file.valueByPointer(pointer);
    std::vector<std::string> reasons;
    if(section && !section->IsObject()) reasons.push_back("this is not an object");
    _problems.set(kind, {}, std::move(reasons));
    if(!section || !section->IsObject()) return;
    for(auto member = section->MemberBegin(); member != section->MemberEnd(); ++member)
        compile(kind, textOf(member->name));
}

void ResourceUpdates::compile(ResourceKind kind, Containers::StringView id) {
    if(of(kind).isMarked.insert(id).second) of(kind).marked.push_back(id);
}

void ResourceUpdates::update() {
    begin();
    while(step()) {
    }
}

void ResourceUpdates::begin() {
    CORRADE_ASSERT(_kind == ResourceKindCount, "ResourceCompiler: an update is under way", );
    _objects.clear();
    if(!_isCollected.empty()) _isCollected.clear();
    _kind = 0;
    beginKind();
}

// Compiles one resource. Resources use only those of kinds that come before.
bool ResourceUpdates::step() {
    if(_kind == ResourceKindCount) return false;
    while(_next == _toCompile.size()) {
        endKind();
        if(++_kind == ResourceKindCount) {
            touchAspects();
            return false;
        }
        beginKind();
    }
    const auto& entry = _toCompile[_next++];
    compileOne(ResourceKind(_kind), entry.first, *entry.second);
    return true;
}

void ResourceUpdates::beginKind() {
    const ResourceKind kind = ResourceKind(_kind);
    const std::vector<std::string> marked = std::move(of(kind).marked);
    of(kind).marked.clear();
    if(!of(kind).isMarked.empty()) of(kind).isMarked.clear();
    // Those that go make place for those that come.
    for(const std::string& id: marked) {
        if(const JsonValue* const value = _file.member(resourceSection(kind), id))
            _toCompile.emplace_back(id, value);
        else
            drop(kind, id);
    }
}

void ResourceUpdates::endKind() {
    const ResourceKind kind = ResourceKind(_kind);
    _toCompile.clear();
    _next = 0;
    auto& waiting = of(kind).withoutSlot;
    while(!waiting.empty() && !of(kind).freeSlots.empty()) {
        const std::string id = *waiting.begin();
        waiting.erase(waiting.begin());
        if(const JsonValue* const value = _file.member(resourceSection(kind), id)) compileOne(kind, id, *value);
    }
}

void ResourceUpdates::compileOne(ResourceKind kind, const std::string& id, const JsonValue& value) {
    if(id.empty()) return _problems.set(kind, id, {"a resource without an id is left out"});
    ResourceNode& node = _context.maps.node(kind, id);
    const bool isNew = !node.index;
    if(isNew && !takeSlot(node)) {
        of(kind).withoutSlot.insert(id);
        return _problems.set(kind, id, {"there are more than " + std::to_string(MaximumIndex) + " of them"});
    }
    node.forgetUses();
    std::vector<std::string> reasons;
    const ResourceEntry entry{value, reasons};
    const unsigned changes = handlerOf(kind).compile(_context, node, entry);
    _problems.set(kind, id, std::move(reasons));

    if(isNew)
        _listChanged.set(std::size_t(kind));
    else if((changes & ContentsChanged) || _isCompilingAll)
        _contentsChanged.set(std::size_t(kind));
    changed(node, isNew ? DependentsChanged | BindingChanged : changes);
}

bool ResourceUpdates::takeSlot(ResourceNode& node) {
    const Handler& handler = handlerOf(node.kind);
    std::set<Id>& slots = of(node.kind).freeSlots;
    if(!slots.empty()) {
        node.index = *slots.begin();
        slots.erase(slots.begin());
    } else {
        const std::size_t size = handler.size(_context.scene);
        if(size > MaximumIndex) return false;
        handler.resize(_context.scene, size + 1);
        node.index = Id(size);
    }
    of(node.kind).withoutSlot.erase(node.id);
    handler.reset(_context.scene, node.index, node.id);
    return true;
}

void ResourceUpdates::drop(ResourceKind kind, const std::string& id) {
    _problems.set(kind, id, {});
    of(kind).withoutSlot.erase(id);
    ResourceNode* const node = _context.maps.find(kind, id);
    if(!node) return;
    node->forgetUses();
    if(node->index) {
        freeSlot(*node);
        _listChanged.set(std::size_t(kind));
        changed(*node, DependentsChanged | BindingChanged);
    }
    if(!node->userCount()) _context.maps.of(kind).erase(id);
}

void ResourceUpdates::freeSlot(ResourceNode& node) {
    const Handler& handler = handlerOf(node.kind);
    SceneResources& scene = _context.scene;
    if(node.kind == ResourceKind::Mesh) {
        _context.layout.remove(meshLayout(*scene.meshes[node.index].data));
        scene.meshLayoutFlags = _context.layout.flags();
    }
    _context.sources.set(node, {});
    handler.reset(scene, node.index, {});
    of(node.kind).freeSlots.insert(node.index);
    node.index = 0;
    // The list ends with a slot in use.
    std::set<Id>& slots = of(node.kind).freeSlots;
    std::size_t size = handler.size(scene);
    while(!slots.empty() && *slots.rbegin() == size - 1) {
        slots.erase(--slots.end());
        --size;
    }
    handler.resize(scene, size);
}

void ResourceUpdates::changed(const ResourceNode& node, unsigned changes) {
    if(!(changes & (DependentsChanged | BindingChanged))) return;
    node.forEachUser([&](ResourceUser& user) {
        if(user.isResource()) {
            if(!(changes & DependentsChanged)) return;
            const auto& resource = static_cast<ResourceNode&>(user);
            CORRADE_ASSERT(resource.kind > node.kind,
                "ResourceCompiler:" << resourceSection(node.kind) << "cannot use" << resourceSection(resource.kind), );
            compile(resource.kind, resource.id);
        } else if((changes & BindingChanged) && _isCollected.insert(&user).second) {
            _objects.push_back(&user);
        }
    });
}

void ResourceUpdates::touchAspects() {
    for(std::size_t i = 0; i != ResourceKindCount; ++i) {
        const auto touch = [&](const std::optional<Aspect>& aspect) {
            aspect ? _revisions.touch(*aspect) : _revisions.touch();
        };
        const Handler& handler = Handlers[i];
        if(_listChanged[i]) touch(handler.listAspect);
        if(_contentsChanged[i] && !(_listChanged[i] && handler.listAspect == handler.contentsAspect))
            touch(handler.contentsAspect);
    }
    _listChanged.reset();
    _contentsChanged.reset();
}

} // namespace VantrelEngine
