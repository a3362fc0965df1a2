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

std::string_view nameOf(const JsonValue::Member& member) {
    return {member.name.GetString(), member.name.GetStringLength()};
}

} // namespace

bool Ancestry::isAncestor(const ProjectFile& file, std::string_view object, std::string_view parent) {
    if(parent.empty()) return false;
    if(object == parent) return true;
    if(_ids.size() >= _mostIds) build(file);
    update(file);
    // Who is not known is nobody's parent, and has none.
    const Node above = _ids.find(object), below = _ids.find(parent);
    return above != NumberedIds::None && below != NumberedIds::None && _forest.isAboveOrSame(above, below);
}

void Ancestry::parentChanged(std::string_view object) {
    if(!isRead()) return;
    const Node node = nodeOf(object);
    if(node == Root || _isChanged[node]) return;
    _isChanged[node] = true;
    _changed.push_back(node);
}

void Ancestry::forget() { *this = Ancestry{}; }

void Ancestry::build(const ProjectFile& file) {
    forget();
    _ids.add({});
    std::vector<Node> parents{Root};
    const JsonValue* const objects = file.section("objects");
    if(objects && objects->IsObject()) {
        for(auto object = objects->MemberBegin(); object != objects->MemberEnd(); ++object) {
            const Node node = _ids.add(nameOf(*object)), parent = _ids.add(parentTextOf(object->value));
            parents.resize(_ids.size(), Root);
            parents[node] = parent;
        }
        for(const std::uint32_t position: ParentLinks{*objects}.cycles())
            parents[_ids.find(nameOf(objects->MemberBegin()[position]))] = Root;
    }
    _forest.resize(parents.size());
    for(Node node = 1; node != parents.size(); ++node) _forest.link(node, parents[node]);
    _isChanged.resize(parents.size());
    _mostIds = 2 * parents.size() + 1024;
}

void Ancestry::update(const ProjectFile& file) {
    // All of them first: what is left is a part of the document's tree, whatever the order of the edits was.
    for(const Node node: _changed) _forest.cut(node);
    for(const Node node: _changed) {
        _isChanged[node] = false;
        const Node parent = nodeOf(parentOf(file, _ids[node]));
        _forest.link(node, _forest.isAboveOrSame(node, parent) ? Root : parent);
    }
    _changed.clear();
}

Ancestry::Node Ancestry::nodeOf(std::string_view id) {
    const Node node = _ids.add(id);
    if(node == _isChanged.size()) {
        _isChanged.push_back(false);
        if(node == _forest.size()) _forest.resize(_forest.size() * 3 / 2 + 1);
        _forest.link(node, Root);
    }
    return node;
}

} // namespace VantrelEngine
