#include "Data/StepName.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <string_view>
#include <unordered_set>

#include <Vantrel/EngineData/ProjectFile.h>
#include <Vantrel/EngineData/ResourceMaps.h>

#include "JsonEdit.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Bytes of a name that are shown.
constexpr std::size_t MaxNameLength = 48;

// Of numbers, beside the largest of them. Taking a transformation apart and putting it together costs some digits.
constexpr double Noise = 1e-4;

// The first of them that a step does is what it is called after.
enum class Deed {
    AddObject,
    DeleteObject,
    Reparent,
    AddComponent,
    RemoveComponent,
    Transform,
    Rename,
    Change,
    AddResource,
    DeleteResource,
    Set,
    Other
};

enum TransformPart : unsigned { Moved = 1, Rotated = 2, Scaled = 4 };

// A change, with the parents that were made for it taken away: section, id, and what is behind that.
struct Edit {
    std::string path;
    std::vector<std::string_view> tokens;
    const JsonValue* oldValue;
    const JsonValue* newValue;
};

std::vector<std::string_view> tokensOf(std::string_view path) {
    std::vector<std::string_view> tokens;
    while(!path.empty()) {
        path.remove_prefix(1);
        const std::size_t end = std::min(path.find('/'), path.size());
        tokens.push_back(path.substr(0, end));
        path.remove_prefix(end);
    }
    return tokens;
}

std::string escaped(const JsonValue& key) { return pointerToken({key.GetString(), key.GetStringLength()}); }

std::string plain(std::string_view token) { return unescaped({token.data(), token.size()}); }

bool isKeyed(std::string_view section) {
    return section == "objects" || resourceKindOf({section.data(), section.size()}) != ResourceKindCount;
}

// Of an object, a component or a resource the whole is what was added, whatever is in it.
bool isWhole(std::string_view path) {
    const std::vector<std::string_view> tokens = tokensOf(path);
    if(tokens.size() == 4) return tokens[0] == "objects" && tokens[2] == "components";
    return tokens.size() == 2 && isKeyed(tokens[0]);
}

Edit editOf(const Change& change) {
    Edit edit{std::string{change.path.data(), change.path.size()}, {}, change.oldValue ? &*change.oldValue : nullptr,
        change.newValue ? &*change.newValue : nullptr};
    while(!edit.oldValue && edit.newValue && edit.newValue->IsObject() && edit.newValue->MemberCount() == 1 &&
        !isWhole(edit.path)) {
        edit.path += '/' + escaped(edit.newValue->MemberBegin()->name);
        edit.newValue = &edit.newValue->MemberBegin()->value;
    }
    edit.tokens = tokensOf(edit.path);
    return edit;
}

std::string shortened(std::string_view name) {
    std::string text{name.substr(0, MaxNameLength)};
    if(text.size() != name.size()) {
        // Never in the middle of a letter.
        while(!text.empty() && (name[text.size()] & 0xc0) == 0x80) text.pop_back();
        text += "...";
    }
    for(char& c: text)
        if(static_cast<unsigned char>(c) < ' ' || c == 0x7f) c = ' ';
    return text;
}

std::string textOf(const JsonValue* value) {
    return value && value->IsString() ? std::string{value->GetString(), value->GetStringLength()} : std::string{};
}

const JsonValue* memberOf(const JsonValue* value, const char* key) {
    if(!value || !value->IsObject()) return nullptr;
    const auto found = value->FindMember(key);
    return found == value->MemberEnd() ? nullptr : &found->value;
}

// By its id where it has no name.
std::string nameOf(const JsonValue* thing, const std::string& id) {
    const std::string name = textOf(memberOf(thing, "name"));
    return shortened(name.empty() ? id : name);
}

std::string nameIn(const ProjectFile& project, const std::string& section, const std::string& id) {
    return nameOf(project.member({section.data(), section.size()}, {id.data(), id.size()}), id);
}

std::string singular(std::string_view section) {
    if(section == "meshes") return "mesh";
    return std::string{section.substr(0, section.size() - 1)};
}

// "useMultiDraw": "multi draw".
std::string words(std::string_view key) {
    std::string text;
    for(const char c: key) {
        const bool isUpper = std::isupper(static_cast<unsigned char>(c));
        if(isUpper && !text.empty()) text += ' ';
        text += isUpper ? char(std::tolower(static_cast<unsigned char>(c))) : c;
    }
    if(text.compare(0, 4, "use ") == 0) text.erase(0, 4);
    if(const std::size_t color = text.find("color"); color != text.npos) text.replace(color, 5, "colour");
    return text;
}

// From one token on, without places in lists.
std::string wordsFrom(const Edit& edit, std::size_t first) {
    std::string text;
    for(std::size_t i = first; i < edit.tokens.size(); ++i) {
        const std::string token = plain(edit.tokens[i]);
        if(!isIndexToken({token.data(), token.size()})) text += (text.empty() ? "" : " ") + words(token);
    }
    return text;
}

bool differs(const JsonValue* a, const JsonValue* b, bool isEqualWhenTurnedOver) {
    if(!a || !b || !a->IsArray() || !b->IsArray() || a->Size() != b->Size()) return true;
    double largest = 0.0, difference = 0.0, sum = 0.0;
    for(rapidjson::SizeType i = 0; i != a->Size(); ++i) {
        if(!(*a)[i].IsNumber() || !(*b)[i].IsNumber()) return true;
        const double from = (*a)[i].GetDouble(), to = (*b)[i].GetDouble();
        largest = std::max({largest, std::abs(from), std::abs(to)});
        difference = std::max(difference, std::abs(from - to));
        sum = std::max(sum, std::abs(from + to));
    }
    return (isEqualWhenTurnedOver ? std::min(difference, sum) : difference) > Noise * largest;
}

class Naming {
public:
    explicit Naming(const ProjectFile& project): _project{project} {}

    void add(const Change& change);
    std::string name() const;

private:
    void addObjectEdit(const Edit& edit);
    void addComponentEdit(const Edit& edit, std::size_t depth);
    void addComponents(const Edit& edit);
    void addTransform(const Edit& edit, unsigned part);
    void addThings(const Edit& edit);
    // Notes the deed, unless the step is called after another one. Whether it was.
    bool note(Deed deed, const Edit& edit, std::string detail = {});
    std::string componentType(const Edit& edit) const;

    std::string subject() const;
    std::string things() const;
    std::string parentName() const;
    std::string transformVerb() const;
    std::string change() const;

    const ProjectFile& _project;
    Deed _deed = Deed::Other;
    bool _isAny = false;
    // Of the first change of the deed.
    std::string _section, _id, _name;
    // What else is to be said of it; empty where the changes do not agree.
    std::string _detail;
    // Of a name: what it was, and what it is.
    std::string _from, _to;
    unsigned _transformed = 0;
    bool _hasOneSection = true;
    // By section and id.
    std::unordered_set<std::string> _things;
};

bool Naming::note(Deed deed, const Edit& edit, std::string detail) {
    if(_isAny && deed > _deed) return false;
    const std::string section = edit.tokens.empty() ? std::string{} : plain(edit.tokens[0]);
    const std::string id = edit.tokens.size() > 1 ? plain(edit.tokens[1]) : std::string{};
    if(!_isAny || deed < _deed) {
        _things.clear();
        _isAny = _hasOneSection = true;
        _deed = deed;
        _section = section;
        _id = id;
        _detail = std::move(detail);
        // What is gone has only the name that it had.
        _name = edit.tokens.size() == 2 && edit.oldValue ? nameOf(edit.oldValue, id) : nameIn(_project, section, id);
    } else {
        if(_detail != detail) _detail.clear();
        if(_section != section) _hasOneSection = false;
    }
    _things.insert(section + '/' + id);
    return true;
}

void Naming::add(const Change& change) {
    const Edit edit = editOf(change);
    if(edit.tokens.empty()) return;
    const std::string_view section = edit.tokens[0];
    if(section == "settings") {
        // The first one only says which part of the settings it is in.
        note(Deed::Set, edit, wordsFrom(edit, edit.tokens.size() > 2 ? 2 : 1));
        return;
    }
    if(!isKeyed(section)) {
        note(Deed::Other, edit, wordsFrom(edit, 0));
        return;
    }
    if(edit.tokens.size() < 2) return addThings(edit);
    const bool isObject = section == "objects";
    if(edit.tokens.size() == 2) {
        if(edit.oldValue && edit.newValue)
            note(Deed::Change, edit);
        else if(edit.newValue)
            note(isObject ? Deed::AddObject : Deed::AddResource, edit);
        else
            note(isObject ? Deed::DeleteObject : Deed::DeleteResource, edit);
        return;
    }
    if(edit.tokens[2] == "name") {
        if(!note(Deed::Rename, edit)) return;
        _from = textOf(edit.oldValue);
        _to = textOf(edit.newValue);
        return;
    }
    if(isObject) return addObjectEdit(edit);
    // The values of a material stand below the name of its shader.
    note(Deed::Change, edit, wordsFrom(edit, section == "materials" && edit.tokens.size() > 3 ? 3 : 2));
}

// A whole section, which is the way in which its first members are added.
void Naming::addThings(const Edit& edit) {
    const JsonValue* const members = edit.newValue ? edit.newValue : edit.oldValue;
    if(!members || !members->IsObject() || (edit.oldValue && edit.newValue)) {
        note(Deed::Other, edit, wordsFrom(edit, 0));
        return;
    }
    for(auto member = members->MemberBegin(); member != members->MemberEnd(); ++member) {
        Edit each{edit.path + '/' + escaped(member->name), {}, edit.oldValue ? &member->value : nullptr,
            edit.newValue ? &member->value : nullptr};
        each.tokens = tokensOf(each.path);
        const bool isObject = each.tokens[0] == "objects";
        if(edit.newValue)
            note(isObject ? Deed::AddObject : Deed::AddResource, each);
        else
            note(isObject ? Deed::DeleteObject : Deed::DeleteResource, each);
    }
}

void Naming::addObjectEdit(const Edit& edit) {
    const std::string_view key = edit.tokens[2];
    if(key == "parent") {
        note(Deed::Reparent, edit, '/' + textOf(edit.newValue));
        return;
    }
    if(key == "translation") return addTransform(edit, Moved);
    if(key == "rotation") return addTransform(edit, Rotated);
    if(key == "scaling") return addTransform(edit, Scaled);
    if(key != "components") {
        note(Deed::Change, edit, wordsFrom(edit, 2));
        return;
    }
    if(edit.tokens.size() == 3) return addComponents(edit);
    const std::string type = componentType(edit);
    if(edit.tokens.size() == 4) {
        const Deed deed = edit.oldValue && edit.newValue ? Deed::Change
            : edit.newValue                              ? Deed::AddComponent
                                                         : Deed::RemoveComponent;
        note(deed, edit, type);
        return;
    }
    if(edit.tokens.size() == 5 && edit.tokens[4] == "active" && edit.newValue && edit.newValue->IsBool()) {
        note(Deed::Change, edit, (edit.newValue->GetBool() ? "+" : "-") + type);
        return;
    }
    const bool isTypeNamed = edit.tokens.size() > 5 && plain(edit.tokens[4]) == type;
    note(Deed::Change, edit, wordsFrom(edit, isTypeNamed ? 5 : 4));
}

// All of an object's components.
void Naming::addComponents(const Edit& edit) {
    const auto sizeOf = [](const JsonValue* value) { return value && value->IsArray() ? value->Size() : 0; };
    const auto typeOf = [](const JsonValue& components) {
        const std::string type = textOf(memberOf(&components[components.Size() - 1], "type"));
        return type.empty() ? std::string{"component"} : shortened(type);
    };
    const rapidjson::SizeType before = sizeOf(edit.oldValue), after = sizeOf(edit.newValue);
    if(after == before + 1)
        note(Deed::AddComponent, edit, typeOf(*edit.newValue));
    else if(after > before)
        note(Deed::AddComponent, edit, "components");
    else if(before == 1 && !after)
        note(Deed::RemoveComponent, edit, typeOf(*edit.oldValue));
    else
        note(after < before ? Deed::RemoveComponent : Deed::Change, edit, "components");
}

void Naming::addTransform(const Edit& edit, unsigned part) {
    if(!note(Deed::Transform, edit)) return;
    if(differs(edit.oldValue, edit.newValue, part == Rotated)) _transformed |= part;
}

std::string Naming::componentType(const Edit& edit) const {
    const std::string path = "/objects/" + std::string{edit.tokens[1]} + "/components/" + std::string{edit.tokens[3]};
    const bool isGone = edit.tokens.size() == 4 && !edit.newValue;
    const JsonValue* const component = isGone ? edit.oldValue : _project.valueByPointer(path.c_str());
    const std::string type = textOf(memberOf(component, "type"));
    return type.empty() ? "component" : shortened(type);
}

std::string Naming::things() const {
    if(_hasOneSection) return _section;
    return _deed == Deed::AddResource || _deed == Deed::DeleteResource ? "resources" : "things";
}

std::string Naming::subject() const {
    return _things.size() == 1 ? _name : std::to_string(_things.size()) + ' ' + things();
}

std::string Naming::parentName() const {
    if(_detail.empty()) return " below others";
    return _detail == "/" ? " to the top level" : " below " + nameIn(_project, "objects", _detail.substr(1));
}

std::string Naming::transformVerb() const {
    const bool isScaled = _transformed & Scaled, isRotated = _transformed & Rotated;
    // Several are scaled and turned about their middle, which moves them, too.
    return isScaled && isRotated ? "Transform " : isScaled ? "Scale " : isRotated ? "Rotate " : "Move ";
}

std::string Naming::change() const {
    if(_detail.empty()) return "Change " + subject();
    if(_detail[0] == '+') return "Switch on " + _detail.substr(1) + " of " + subject();
    if(_detail[0] == '-') return "Switch off " + _detail.substr(1) + " of " + subject();
    return "Change " + _detail + " of " + subject();
}

std::string Naming::name() const {
    const bool isOne = _things.size() == 1;
    const std::string kind = isOne ? singular(_section) + ' ' : std::string{};
    switch(_deed) {
    case Deed::AddObject: return "Add " + subject();
    case Deed::DeleteObject: return "Delete " + subject();
    case Deed::Reparent: return "Move " + subject() + parentName();
    case Deed::AddComponent: return "Add " + (_detail.empty() ? "components" : _detail) + " to " + subject();
    case Deed::RemoveComponent: return "Remove " + (_detail.empty() ? "components" : _detail) + " from " + subject();
    case Deed::Transform: return transformVerb() + subject();
    case Deed::Rename:
        if(!isOne) return "Rename " + subject();
        return "Rename " + shortened(_from.empty() ? _id : _from) + " to " + shortened(_to.empty() ? _id : _to);
    case Deed::Change: return change();
    case Deed::AddResource: return "Add " + kind + subject();
    case Deed::DeleteResource: return "Delete " + kind + subject();
    case Deed::Set: return _detail.empty() ? "Change settings" : "Set " + _detail;
    case Deed::Other: break;
    }
    return _detail.empty() ? "Change project" : "Change " + _detail;
}

} // namespace

std::string stepName(Containers::ArrayView<const Change> changes, const ProjectFile& project) {
    Naming naming{project};
    for(const Change& change: changes) naming.add(change);
    return naming.name();
}

std::string placementName(Containers::StringView object, const ProjectFile& project) {
    return "Place " + nameIn(project, "objects", {object.data(), object.size()});
}

} // namespace VantrelEngine
