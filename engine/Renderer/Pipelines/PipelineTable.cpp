#include "Renderer/Pipelines/PipelineTable.h"

#include <utility>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// What hides what is behind it, to the last pixel.
bool isOpaque(const PipelineHeader& header) {
    constexpr std::uint32_t Depth = PipelineHeader::DepthTest | PipelineHeader::DepthWrite;
    return (header.flags & Depth) == Depth && !(header.flags & (PipelineHeader::Blend | PipelineHeader::AlphaMask));
}

// What debuggers call a program. The GL refuses names that are longer than it likes.
std::string labelOf(const std::string& pipeline, ProgramPurpose purpose) {
    constexpr std::size_t LongestName = 100;
    constexpr const char* Purposes[]{"picture", "depth", "object ids", "one colour"};
    return pipeline.substr(0, LongestName) + ": " + Purposes[std::size_t(purpose)];
}

} // namespace

std::size_t Pipeline::parameter(std::string_view name) const {
    std::size_t i = 0;
    while(i != parameters.size() && parameters[i].name != name) ++i;
    return i;
}

void PipelineTable::clear() {
    _pipelines.clear();
    _plans.clear();
    _indices.clear();
    _depthSource.clear();
    _isTidy = false;
}

void PipelineTable::setLinear(bool isLinear) {
    _isLinear = isLinear;
    for(std::size_t i = 0; i != _plans.size(); ++i) {
        // Not there at all.
        if(_plans[i].recipe.vertexSource.empty()) continue;
        _plans[i].recipe.isLinear = isLinear;
        _plans[i].isDue = true;
    }
}

void PipelineTable::add(Id index, const ScenePipeline& pipeline, std::string_view vertexSource,
    std::string_view fragmentSource, const VertexLayout& layout) {
    if(index >= _pipelines.size()) {
        _pipelines.resize(std::size_t{index} + 1);
        _plans.resize(_pipelines.size());
    }
    Pipeline& added = _pipelines[index] = Pipeline{};
    added.name = pipeline.name;
    added.header = pipeline.header;
    added.parameters = pipeline.parameters;
    _indices.emplace(added.name, index);
    Plan& plan = _plans[index] = Plan{};
    plan.recipe = {pipeline, std::string{vertexSource}, std::string{fragmentSource}, layout,
        std::vector<TextureNeeds>(pipeline.parameters.size()), _hasEnvironment, _hasShadows, _isLinear};
    plan.isDue = true;
    if(vertexSource.empty() || fragmentSource.empty()) makeFlat(plan);
}

void PipelineTable::makeFlat(Plan& plan) {
    plan.isFlat = true;
    plan.recipe.vertexSource = flatVertexSource();
    plan.recipe.fragmentSource = flatFragmentSource(plan.recipe.description.parameters);
    plan.recipe.needs.clear();
}

void PipelineTable::addNeeds(Id index, std::size_t parameter, TextureNeeds needs) {
    Plan& plan = _plans[index];
    if(plan.isFlat || !(needs & ~plan.recipe.needs[parameter])) return;
    plan.recipe.needs[parameter] |= needs;
    plan.isDue = true;
}

bool PipelineTable::setEnvironment(bool isThere) {
    return set(_hasEnvironment, &PipelineRecipe::hasEnvironment, isThere, dependsOnEnvironment);
}

bool PipelineTable::setShadows(bool enabled) {
    return set(_hasShadows, &PipelineRecipe::hasShadows, enabled, dependsOnShadows);
}

bool PipelineTable::set(
    bool& known, bool PipelineRecipe::*ofRecipe, bool value, bool (*isUsedBy)(std::string_view fragmentSource)) {
    if(value == known) return false;
    known = value;
    bool isAnyDue = false;
    for(Plan& plan: _plans) {
        plan.recipe.*ofRecipe = value;
        const bool isDue = isUsedBy(plan.recipe.fragmentSource);
        plan.isDue |= isDue;
        isAnyDue |= isDue;
    }
    return isAnyDue;
}

void PipelineTable::build() {
    for(std::size_t i = 0; i != _plans.size(); ++i)
        if(_plans[i].isDue) build(_pipelines[i], _plans[i]);
}

void PipelineTable::build(Pipeline& pipeline, Plan& plan) {
    plan.isDue = false;
    _isTidy = false;
    std::string reason;
    if(buildPrograms(pipeline, plan.recipe, reason)) return;
    if(!plan.isFlat) {
        Utility::Error{} << "WebGL2Renderer: pipeline" << Containers::StringView{pipeline.name}
                         << "is drawn flat:" << Containers::StringView{reason};
        makeFlat(plan);
        if(buildPrograms(pipeline, plan.recipe, reason)) return;
    }
    Utility::Error{} << "WebGL2Renderer: pipeline" << Containers::StringView{pipeline.name}
                     << "is not drawn:" << Containers::StringView{reason};
}

bool PipelineTable::buildPrograms(Pipeline& pipeline, const PipelineRecipe& recipe, std::string& reason) {
    const auto make = [&](ProgramPurpose purpose) {
        return program(pipelineSources(recipe, _hasDrawParameters, purpose), labelOf(pipeline.name, purpose), reason);
    };
    pipeline.picture = make(ProgramPurpose::Picture);
    if(!pipeline.picture) return false;
    pipeline.objectIds = make(ProgramPurpose::ObjectIds);
    pipeline.oneColor = make(ProgramPurpose::OneColor);
    const bool hasDepth =
        !_depthSource.empty() && endsWith(recipe.vertexSource, _depthSource) && isOpaque(pipeline.header);
    pipeline.depth = hasDepth ? make(ProgramPurpose::Depth) : nullptr;
    return pipeline.objectIds && pipeline.oneColor && bool(pipeline.depth) == hasDepth;
}

std::shared_ptr<MeshProgram> PipelineTable::program(
    const ShaderSources& sources, const std::string& label, std::string& reason) {
    std::string key;
    for(const std::string* const piece: {&sources.vertexPrefix, &sources.vertex, &sources.vertexSuffix,
            &sources.fragmentPrefix, &sources.fragment, &sources.fragmentSuffix})
        key += *piece + '\0';
    if(const auto found = _programs.find(key); found != _programs.end()) return found->second;
    ++_builtPrograms;
    std::optional<MeshProgram> made = MeshProgram::make(sources, reason);
    if(!made) return nullptr;
    made->setLabel({label.data(), label.size()});
    return _programs.emplace(std::move(key), std::make_shared<MeshProgram>(std::move(*made))).first->second;
}

void PipelineTable::tidy() {
    if(_isTidy) return;
    _isTidy = true;
    for(auto i = _programs.begin(); i != _programs.end();)
        i = i->second.use_count() == 1 ? _programs.erase(i) : std::next(i);
}

Id PipelineTable::find(std::string_view name) const {
    const auto found = _indices.find(std::string{name});
    return found == _indices.end() ? Id{0} : found->second;
}

const Pipeline& PipelineTable::operator[](Id index) const {
    static const Pipeline none;
    return index < _pipelines.size() ? _pipelines[index] : none;
}

} // namespace VantrelEngine
