#include "Utilities/SiblingNames.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <Vantrel/EngineData/Scene.h>

namespace VantrelEngine {

namespace {

// Those that a person would count on from.
constexpr std::size_t MaxDigits = 6;

struct NumberedName {
    std::string_view text;
    // 0 for none.
    unsigned number;
};

NumberedName split(std::string_view name) {
    const std::size_t last = name.find_last_not_of("0123456789");
    if(last == std::string_view::npos || last == 0 || name[last] != ' ') return {name, 0};
    const std::string_view digits = name.substr(last + 1);
    if(digits.empty() || digits.size() > MaxDigits || digits[0] == '0') return {name, 0};
    unsigned number = 0;
    for(const char digit: digits) number = number * 10 + unsigned(digit - '0');
    return {name.substr(0, last), number};
}

} // namespace

void SiblingNames::announce(Id parent, const std::string& name) {
    const NumberedName wanted = split(name);
    _children[parent].families[std::string{wanted.text}].isTaken.emplace(wanted.number, false);
}

std::string SiblingNames::take(Id parent, const std::string& name) {
    Children& children = _children[parent];
    if(!children.wereSeen) look(parent, children);
    const NumberedName wanted = split(name);
    Family& family = children.families[std::string{wanted.text}];
    if(!std::exchange(family.isTaken[wanted.number], true)) {
        family.highest = std::max(family.highest, wanted.number);
        return name;
    }
    return std::string{wanted.text} + ' ' + std::to_string(++family.highest);
}

void SiblingNames::look(Id parent, Children& children) const {
    children.wereSeen = true;
    // Costs no memory for a name that is short.
    std::string text;
    for(Id child = _scene.firstChild(parent); child != NoObject; child = _scene.nextSibling(child)) {
        const auto name = _scene.objectNames.nameOf(child);
        const NumberedName seen = split({name.data(), name.size()});
        text.assign(seen.text);
        const auto family = children.families.find(text);
        if(family == children.families.end()) continue;
        family->second.highest = std::max(family->second.highest, seen.number);
        const auto number = family->second.isTaken.find(seen.number);
        if(number != family->second.isTaken.end()) number->second = true;
    }
}

} // namespace VantrelEngine
