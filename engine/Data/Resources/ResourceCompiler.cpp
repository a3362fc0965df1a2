#include "VantrelHost/ResourceCompiler.h"

#include "Data/Resources/ResourceUpdates.h"

namespace VantrelEngine {

using namespace Corrade;

ResourceCompiler::ResourceCompiler(const ProjectFile& file, const ResourceManager& files, SceneResources& scene,
    ResourceMaps& maps, SceneRevisions& revisions):
    _updates{std::make_unique<ResourceUpdates>(file, files, scene, maps, revisions)} {}

ResourceCompiler::~ResourceCompiler() = default;

void ResourceCompiler::compileAll() { _updates->compileAll(); }

void ResourceCompiler::beginCompileAll() { _updates->beginCompileAll(); }

bool ResourceCompiler::compileNext() { return _updates->compileNext(); }

std::size_t ResourceCompiler::remainingCount() const { return _updates->remaining(); }

void ResourceCompiler::compile(ResourceKind kind, Containers::StringView id) { _updates->compile(kind, id); }

void ResourceCompiler::update() { _updates->update(); }

void ResourceCompiler::beginUpdate() { _updates->beginUpdate(); }

const std::vector<ResourceUser*>& ResourceCompiler::objectsToCompile() const { return _updates->objectsToCompile(); }

std::vector<ResourceProblem> ResourceCompiler::problems() const { return _updates->problems(); }

std::size_t ResourceCompiler::problemsRevision() const { return _updates->problemsRevision(); }

} // namespace VantrelEngine
