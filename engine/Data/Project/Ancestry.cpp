#include "Data/Project/Ancestry.h"

#include "Data/Project/ParentLinks.h"
#include "Vantrel/EngineData/ProjectFile.h"

namespace VantrelEngine {

namespace {

// Empty where there is no such object, too.
std::string_view parentOf(const ProjectFile& file, std::string_view id) {
    const JsonValue* const object = file.member("objects", {id.data(), id.size()});
    return object ? parentTextOf(*object) : std::string_view{};
}

bool exists(const ProjectFile& file, std::string_view id) { return file.member("objects", {id.data(), id.size()}); }

} // namespace

bool Ancestry::isAncestor(const ProjectFile& file, std::string_view object, std::string_view parent) {
    if(parent.empty()) return false;
    trace(file, parent);
    if(setOf(nodeOf(object)) != setOf(nodeOf(parent))) return false;
    if(_ancestors.empty() || _ancestorsOf != parent) collectAncestors(file, parent);
    return _ancestors.count(std::string{object});
}

void Ancestry::parentChanges(std::string_view object, std::string_view parent) {
    const std::string id{object};
    if(_ancestors.count(id)) _ancestors.clear();
    // What nobody has asked for is traced when it is.
    if(!parent.empty() && _nodes.count(id)) unite(nodeOf(object), nodeOf(parent));
}

void Ancestry::forget() {
    _nodes.clear();
    _links.clear();
    _isTraced.clear();
    _ancestors.clear();
}

Ancestry::Node Ancestry::nodeOf(std::string_view id) {
    const auto [place, isNew] = _nodes.emplace(id, Node(_links.size()));
    if(isNew) {
        _links.push_back(place->second);
        _isTraced.push_back(false);
    }
    return place->second;
}

Ancestry::Node Ancestry::setOf(Node node) {
    while(_links[node] != node) node = _links[node] = _links[_links[node]];
    return node;
}

void Ancestry::trace(const ProjectFile& file, std::string_view id) {
    Node node = nodeOf(id);
    while(!_isTraced[node] && exists(file, id)) {
        _isTraced[node] = true;
        id = parentOf(file, id);
        if(id.empty()) return;
        const Node parent = nodeOf(id);
        unite(node, parent);
        node = parent;
    }
}

void Ancestry::collectAncestors(const ProjectFile& file, std::string_view parent) {
    _ancestors.clear();
    _ancestorsOf = parent;
    for(std::string_view id = parent; !id.empty() && _ancestors.emplace(id).second;) id = parentOf(file, id);
}

} // namespace VantrelEngine
