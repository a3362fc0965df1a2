#pragma once

#include <bitset>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include <Vantrel/EngineData/SceneRevisions.h>

#include "Data/Resources/ResourceHandlers.h"
#include "Data/Resources/ResourceProblems.h"

namespace VantrelEngine {

class ProjectFile;

// What ResourceCompiler does; see there.
class ResourceUpdates {
public:
    explicit ResourceUpdates(const ProjectFile& file, const ResourceManager& files, SceneResources& scene,
        ResourceMaps& maps, SceneRevisions& revisions);

    void compileAll();
    void beginCompileAll();
    bool compileNext();
    std::size_t remaining() const;
    void compile(ResourceKind kind, Corrade::Containers::StringView id);
    void update();
    void beginUpdate() { begin(); }
    const std::vector<ResourceUser*>& objectsToCompile() const { return _objects; }
    std::vector<ResourceProblem> problems() const { return _problems.all(); }
    std::size_t problemsRevision() const { return _problems.revision(); }

private:
    struct Kind {
        std::vector<std::string> marked;
        std::unordered_set<std::string> isMarked;
        // Below the end of the list.
        std::set<Id> freeSlots;
        // Resources that found no slot.
        std::set<std::string> withoutSlot;
    };

    Kind& of(ResourceKind kind) { return _kinds[std::size_t(kind)]; }
    void markSection(ResourceKind kind);
    void begin();
    void beginKind();
    void endKind();
    bool step();
    void compileOne(ResourceKind kind, const std::string& id, const JsonValue& value);
    bool takeSlot(ResourceNode& node);
    void drop(ResourceKind kind, const std::string& id);
    void freeSlot(ResourceNode& node);
    // Marks the resources that use this one, or collects the objects.
    void changed(const ResourceNode& node, unsigned changes);
    void touchAspects();

    const ProjectFile& _file;
    SceneRevisions& _revisions;
    ResourceContext _context;
    ResourceProblems _problems;
    Kind _kinds[ResourceKindCount];
    // Since the begin of the update: of which kinds the contents of one changed, and of which one came or went.
    std::bitset<ResourceKindCount> _contentsChanged, _listChanged;
    bool _isCompilingAll = false;
    // How far the update is: the kind, and the resources of it.
    std::size_t _kind = ResourceKindCount;
    std::vector<std::pair<std::string, const JsonValue*>> _toCompile;
    std::size_t _next = 0;
    std::vector<ResourceUser*> _objects;
    std::unordered_set<const ResourceUser*> _isCollected;
};

} // namespace VantrelEngine
