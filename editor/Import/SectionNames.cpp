#include "Import/SectionNames.h"

#include <algorithm>
#include <cctype>
#include <functional>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "Import/References.h"

namespace VantrelEngine {

namespace {

std::size_t mixed(std::size_t a, std::size_t b) { return (a ^ b) * std::size_t{0x9e3779b97f4a7c15}; }

// The same for values that compare equal: members in any order, and whole numbers like doubles.
std::size_t hashOf(const JsonValue& value) {
    if(value.IsNumber()) return std::hash<double>{}(value.GetDouble());
    if(value.IsString()) return std::hash<std::string_view>{}({value.GetString(), value.GetStringLength()});
    std::size_t hash = std::size_t(value.GetType()) + 1;
    if(value.IsArray())
        for(const JsonValue& element: value.GetArray()) hash = mixed(hash, hashOf(element));
    if(value.IsObject())
        for(auto member = value.MemberBegin(); member != value.MemberEnd(); ++member)
            hash += mixed(hashOf(member->name), hashOf(member->value));
    return hash;
}

bool isName(const JsonValue::Member& member) { return textOf(member.name) == "name"; }

std::size_t hashWithoutName(const JsonValue& entry) {
    std::size_t hash = 0;
    for(auto member = entry.MemberBegin(); member != entry.MemberEnd(); ++member)
        if(!isName(*member)) hash += mixed(hashOf(member->name), hashOf(member->value));
    return hash;
}

bool isSameWithoutName(const JsonValue& a, const JsonValue& b) {
    if(a.MemberCount() != b.MemberCount()) return false;
    for(auto member = a.MemberBegin(); member != a.MemberEnd(); ++member) {
        const auto other = b.FindMember(member->name);
        if(other == b.MemberEnd() || (!isName(*member) && other->value != member->value)) return false;
    }
    return true;
}

bool isNumber(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Whether a name is the wanted one, or that with a number behind it.
bool isMadeOf(const std::string& name, const std::string& wanted) {
    if(name.compare(0, wanted.size(), wanted) != 0) return false;
    return name.size() == wanted.size() || (name[wanted.size()] == ' ' && isNumber(name.substr(wanted.size() + 1)));
}

} // namespace

SectionNames::SectionNames(const ProjectFile& project, std::string section):
    _project{project}, _section{std::move(section)}, _newIds{project, _section, "imported"} {
    const JsonValue* const entries = _project.section(_section);
    if(!entries || !entries->IsObject()) return;
    for(auto entry = entries->MemberBegin(); entry != entries->MemberEnd(); ++entry) {
        if(!entry->value.IsObject()) continue;
        _names.insert(textMember(entry->value, "name"));
        // No object of the scene stands for another one.
        if(_section != "objects") _entries.emplace(hashWithoutName(entry->value), textOf(entry->name));
    }
}

std::string SectionNames::findSame(const JsonValue& entry) const {
    const std::string name = textMember(entry, "name");
    const auto candidates = _entries.equal_range(hashWithoutName(entry));
    for(auto candidate = candidates.first; candidate != candidates.second; ++candidate) {
        const JsonValue* const other = _project.member(_section, candidate->second);
        if(other && isSameWithoutName(entry, *other) && isMadeOf(textMember(*other, "name"), name))
            return candidate->second;
    }
    return {};
}

std::string SectionNames::uniqueName(const std::string& name) {
    std::string unique = name;
    unsigned& number = _lastNumbers[name];
    while(!_names.insert(unique).second) unique = name + ' ' + std::to_string(number = std::max(number, 1u) + 1);
    return unique;
}

} // namespace VantrelEngine
