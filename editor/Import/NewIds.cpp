#include "Import/NewIds.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <functional>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>

namespace VantrelEngine {

namespace {

constexpr std::size_t MaxIdLength = 40;

std::string idOf(const std::string& name, const std::string& nameless) {
    std::string id;
    for(const unsigned char c: name) {
        if(id.size() == MaxIdLength) break;
        if(c < 0x80 && std::isalnum(c))
            id += char(std::tolower(c));
        else if(!id.empty() && id.back() != '-')
            id += '-';
    }
    while(!id.empty() && id.back() == '-') id.pop_back();
    return id.empty() ? nameless : id;
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

NewIds::NewIds(const ProjectFile& project, std::string section, std::string nameless):
    _project{project}, _section{std::move(section)}, _nameless{std::move(nameless)} {}

bool NewIds::isTaken(const std::string& id) const { return _given.count(id) || _project.member(_section, id); }

std::string NewIds::fromName(const std::string& name) {
    const std::string base = idOf(name, _nameless);
    std::string id = base;
    unsigned& number = _lastNumbers[base];
    while(isTaken(id)) id = base + '-' + std::to_string(number = std::max(number, 1u) + 1);
    _given.insert(id);
    return id;
}

std::string NewIds::uuidFromName(const std::string& name) {
    const std::uint64_t seed = std::hash<std::string>{}(name);
    unsigned& number = _lastNumbers[name];
    std::string id = uuidOf(seed + number);
    // Of a name that is there thousands of times, most of the first numbers are taken.
    for(unsigned step = 1; isTaken(id); step *= 2) id = uuidOf(seed + (number += step));
    _given.insert(id);
    return id;
}

} // namespace VantrelEngine
