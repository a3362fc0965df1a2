#pragma once

#include <memory>
#include <string>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/ResourceMaps.h>

namespace VantrelEngine {

class ProjectFile;
class ResourceManager;
class ResourceUpdates;
class SceneRevisions;
struct SceneResources;

// What is wrong with a resource of the document.
struct ResourceProblem {
    ResourceKind kind;
    // Empty where it is the whole section.
    std::string id;
    std::string reason;
};

// Turns the resources of the document, and their files, into those of a scene, and keeps them up to date.
//
// A resource gets the smallest free index of its kind, from 1 on, and keeps it for as long as it is in the document. What
// is wrong with one gets a line on the warning output when it is found out; what cannot be used of it is replaced by a
// placeholder or a default, and nothing else suffers. A file is read when the resource starts to name it, and again only
// by compileAll() or where it could not be used before.
//
// An update costs what changed and what uses it.
class CORRADE_VISIBILITY_EXPORT ResourceCompiler {
public:
    // Everything has to outlive the compiler, and the scene has to be empty.
    explicit ResourceCompiler(const ProjectFile& file, const ResourceManager& files, SceneResources& scene,
        ResourceMaps& maps, SceneRevisions& revisions);
    ~ResourceCompiler();
    ResourceCompiler(const ResourceCompiler&) = delete;
    ResourceCompiler& operator=(const ResourceCompiler&) = delete;

    // Compiles every resource of the document, from its file where it has one, and drops those that are gone. Everything
    // that is wrong gets its line again.
    void compileAll();

    // The same a resource at a time: false when there is none left, and all is as after compileAll(). The document, and
    // whatever else is compiled, stays as it is meanwhile. And how many there are still.
    void beginCompileAll();
    bool compileNext();
    std::size_t remainingCount() const;

    // Notes that a resource was added, changed or removed.
    void compile(ResourceKind kind, Corrade::Containers::StringView id);
    // Compiles what was noted, each once, and what has to follow. Counts up the aspects that changed, each once.
    void update();
    // The same with compileNext(), under its conditions.
    void beginUpdate();

    // The objects that have to be compiled again after the last update, each once: of their resources one came or went, a
    // material got another pipeline, a mesh gained or lost joints or became or was a placeholder, or a skin or an
    // animation changed. Valid until the next update, and as long as the objects' nodes live.
    const std::vector<ResourceUser*>& objectsToCompile() const;

    // What is wrong with the document's resources now. Linear in what is wrong.
    std::vector<ResourceProblem> problems() const;
    // Another one whenever they are others.
    std::size_t problemsRevision() const;

private:
    std::unique_ptr<ResourceUpdates> _updates;
};

} // namespace VantrelEngine
