#include "Import/SectionNames.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <functional>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "Import/References.h"

namespace VantrelEngine {

namespace {

constexpr std::size_t MaxIdLength = 40;

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

std::string idOf(const std::string& name) {
    std::string id;
    for(const unsigned char c: name) {
        if(id.size() == MaxIdLength) break;
        if(c < 0x80 && std::isalnum(c))
            id += char(std::tolower(c));
        else if(!id.empty() && id.back() != '-')
            id += '-';
    }
    while(!id.empty() && id.back() == '-') id.pop_back();
    return id.empty() ? "imported" : id;
}

// From a counter, so that a replayed run makes the same ones. Version 4 as others make them by chance.
std::string uuidOf(std::uint64_t seed) {
    std::uint64_t words[2];
    for(std::uint64_t& word: words) {
        seed += 0x9e3779b97f4a7c15u;
        word = (seed ^ (seed >> 30)) * 0xbf58476d1ce4e5b9u;
        word = (word ^ (word >> 27)) * 0x94d049bb133111ebu;
        word ^= word >> 31;
    }
    char text[40];
    std::snprintf(text, sizeof text, "%08x-%04x-4%03x-%04x-%012llx", unsigned(words[0] >> 32),
        unsigned(words[0] >> 16) & 0xffff, unsigned(words[0]) & 0xfff, (unsigned(words[1] >> 48) & 0x3fff) | 0x8000,
        static_cast<unsigned long long>(words[1] & 0xffffffffffffu));
    return text;
}

} // namespace

SectionNames::SectionNames(const ProjectFile& project, std::string section):
    _project{project}, _section{std::move(section)} {
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

bool SectionNames::isTaken(const std::string& id) const { return _ids.count(id) || _project.member(_section, id); }

std::string SectionNames::newId(const std::string& name) {
    const std::string base = idOf(name);
    std::string id = base;
    // A name never has an end like this one.
    unsigned& number = _lastNumbers[base + '\n'];
    while(isTaken(id)) id = base + '-' + std::to_string(number = std::max(number, 1u) + 1);
    _ids.insert(id);
    return id;
}

std::string SectionNames::newUuid(const std::string& name) {
    std::uint64_t seed = std::hash<std::string>{}(name) + _ids.size();
    std::string id = uuidOf(seed);
    while(isTaken(id)) id = uuidOf(++seed);
    _ids.insert(id);
    return id;
}

} // namespace VantrelEngine
