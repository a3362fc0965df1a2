#include "Vantrel/EngineData/ProjectFile.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Debug.h>

#include "Data/Project/MemberIndex.h"
#include "Data/Project/PointerTokens.h"
#include "Vantrel/EngineData/Types.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

using Token = PointerTokens::Token;

// Objects with fewer members are scanned.
constexpr std::size_t IndexedMemberCount = 16;

bool isIndex(const Token& token) { return token.index != Token::NoIndex; }

bool isAppend(const Token& token) { return token.name == "-"; }

std::size_t scanFor(const JsonValue& object, std::string_view name) {
    for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member)
        if(std::string_view{member->name.GetString(), member->name.GetStringLength()} == name)
            return std::size_t(member - object.MemberBegin());
    return MemberIndex::NotFound;
}

JsonValue& memberAt(JsonValue& object, std::size_t position) {
    return (object.MemberBegin() + std::ptrdiff_t(position))->value;
}

// None for a member that is missing or no text.
std::optional<std::string_view> textMember(const JsonValue& object, std::string_view name) {
    const std::size_t position = object.IsObject() ? scanFor(object, name) : MemberIndex::NotFound;
    if(position == MemberIndex::NotFound) return {};
    const JsonValue& value = (object.MemberBegin() + std::ptrdiff_t(position))->value;
    if(!value.IsString()) return {};
    return std::string_view{value.GetString(), value.GetStringLength()};
}

} // namespace

struct ProjectFile::State {
    // A value on the way along a pointer. Its members may be indexed when it
    // stands just below the root; key is its own name then.
    struct Place {
        JsonValue* value;
        std::size_t depth;
        std::string_view key;
    };

    JsonDocument document{rapidjson::kObjectType};
    JsonDocument defaults{rapidjson::kObjectType};
    // By the name of an object below the root. An entry that does not fit its
    // object is made anew when it is asked.
    std::unordered_map<std::string, MemberIndex> indexes;
    // Of the root itself.
    std::optional<MemberIndex> rootIndex;
    std::unordered_set<std::string> warnings;
    // By its pointer: what was warned of, and why. Copies have an allocator without a state.
    struct Unusable {
        JsonValue value;
        std::string reason;
    };
    std::map<std::string, Unusable> unusable;
    std::size_t unusableRevision = 0;
    EditGuard* guard = nullptr;

    MemberIndex* indexOf(const Place& place) {
        if(place.depth > 1 || place.value->MemberCount() < IndexedMemberCount) return nullptr;
        if(place.depth == 0) {
            if(!rootIndex || !rootIndex->fits(*place.value)) rootIndex.emplace(*place.value);
            return &*rootIndex;
        }
        const auto known = indexes.find(std::string{place.key});
        if(known != indexes.end()) {
            if(known->second.fits(*place.value)) return &known->second;
            indexes.erase(known);
        }
        return &indexes.emplace(place.key, MemberIndex{*place.value}).first->second;
    }

    std::size_t findMember(const Place& place, std::string_view name) {
        const MemberIndex* const index = indexOf(place);
        return index ? index->find(*place.value, name) : scanFor(*place.value, name);
    }

    JsonValue* findValue(const Place& place, std::string_view name) {
        const std::size_t position = findMember(place, name);
        return position == MemberIndex::NotFound ? nullptr : &memberAt(*place.value, position);
    }

    // The child that the token names, value null where there is none.
    Place child(const Place& place, const Token& token) {
        Place result{nullptr, place.depth + 1, token.name};
        if(place.value->IsObject()) {
            result.value = findValue(place, token.name);
        } else if(place.value->IsArray() && isIndex(token) && token.index < place.value->Size()) {
            result.value = &(*place.value)[token.index];
        }
        return result;
    }

    Place follow(const PointerTokens& tokens, std::size_t count) {
        Place place{&document, 0, {}};
        for(std::size_t i = 0; i != count && place.value; ++i) place = child(place, tokens[i]);
        return place;
    }

    Place addMember(const Place& place, const Token& token) {
        MemberIndex* const index = indexOf(place);
        place.value->AddMember(
            JsonValue{token.name.data(), rapidjson::SizeType(token.name.size()), document.GetAllocator()}, JsonValue{},
            document.GetAllocator());
        if(index) index->appended(token.name);
        return {&memberAt(*place.value, place.value->MemberCount() - 1), place.depth + 1, token.name};
    }

    Place addElements(const Place& place, const Token& token) {
        const std::size_t index = isAppend(token) ? place.value->Size() : token.index;
        place.value->Reserve(rapidjson::SizeType(index + 1), document.GetAllocator());
        while(place.value->Size() <= index) place.value->PushBack(JsonValue{}, document.GetAllocator());
        return {&(*place.value)[rapidjson::SizeType(index)], place.depth + 1, token.name};
    }

    Place addChild(const Place& place, const Token& token) {
        if(place.value->IsNull()) {
            if(isIndex(token) || isAppend(token))
                place.value->SetArray();
            else
                place.value->SetObject();
        }
        return place.value->IsArray() ? addElements(place, token) : addMember(place, token);
    }
};

ProjectFile::ProjectFile(): _state{std::make_unique<State>()} {}

ProjectFile::~ProjectFile() = default;

JsonDocument& ProjectFile::projectFile() { return _state->document; }

const JsonDocument& ProjectFile::projectFile() const { return _state->document; }

JsonAllocator& ProjectFile::allocator() { return _state->document.GetAllocator(); }

void ProjectFile::membersChanged() {
    _state->indexes.clear();
    _state->rootIndex.reset();
}

void ProjectFile::setDefaults(JsonDocument&& defaults) { _state->defaults = std::move(defaults); }

const JsonDocument& ProjectFile::defaults() const { return _state->defaults; }

void ProjectFile::warnOnce(const std::string& line) const {
    if(_state->warnings.insert(line).second) Utility::Warning{} << line.c_str();
}

void ProjectFile::warnUnusable(const UnusableValue& value, const std::string& place) const {
    warnOnce(place + ": " + value.reason);
    const JsonValue* const there = valueByPointer({value.pointer.data(), value.pointer.size()});
    if(!there) return;
    State::Unusable& known = _state->unusable[value.pointer];
    if(known.value == *there && known.reason == value.reason) return;
    known.value.CopyFrom(*there, _state->document.GetAllocator());
    known.reason = value.reason;
    ++_state->unusableRevision;
}

std::vector<ProjectFile::UnusableValue> ProjectFile::unusableValues() const {
    std::vector<UnusableValue> values;
    for(const auto& known: _state->unusable) {
        const JsonValue* const there = valueByPointer({known.first.data(), known.first.size()});
        if(there && *there == known.second.value) values.push_back({known.first, known.second.reason});
    }
    return values;
}

std::size_t ProjectFile::unusableRevision() const { return _state->unusableRevision; }

void ProjectFile::forgetWarnings() {
    _state->warnings.clear();
    _state->unusable.clear();
    ++_state->unusableRevision;
}

std::size_t ProjectFile::roomForObjects() const {
    const JsonValue* const objects = section("objects");
    const std::size_t count = objects && objects->IsObject() ? objects->MemberCount() : 0;
    return MaxObjects - std::min(count, MaxObjects);
}

void ProjectFile::setEditGuard(EditGuard* guard) { _state->guard = guard; }

ProjectFile::EditGuard* ProjectFile::editGuard() const { return _state->guard; }

JsonValue* ProjectFile::valueByPointer(Containers::StringView pointer) {
    const PointerTokens path{pointer};
    return path.isValid() ? _state->follow(path, path.size()).value : nullptr;
}

const JsonValue* ProjectFile::valueByPointer(Containers::StringView pointer) const {
    // The index is made while looking; the document is not changed.
    return const_cast<ProjectFile&>(*this).valueByPointer(pointer);
}

const JsonValue* ProjectFile::section(Containers::StringView name) const {
    if(!_state->document.IsObject()) return nullptr;
    return _state->findValue({&_state->document, 0, {}}, {name.data(), name.size()});
}

const JsonValue* ProjectFile::member(Containers::StringView section, Containers::StringView key) const {
    const std::string_view sectionName{section.data(), section.size()};
    if(!_state->document.IsObject()) return nullptr;
    JsonValue* const object = _state->findValue({&_state->document, 0, {}}, sectionName);
    if(!object || !object->IsObject()) return nullptr;
    return _state->findValue({object, 1, sectionName}, {key.data(), key.size()});
}

Containers::StringView ProjectFile::resourceByName(Containers::StringView section, Containers::StringView name) const {
    const JsonValue* const resources = valueByPointer("/" + section);
    if(!resources || !resources->IsObject()) return {};
    for(auto member = resources->MemberBegin(); member != resources->MemberEnd(); ++member)
        if(textMember(member->value, "name") == std::string_view{name.data(), name.size()})
            return {member->name.GetString(), member->name.GetStringLength()};
    return {};
}

FileLink ProjectFile::fileLinkForResource(Containers::StringView section, Containers::StringView id) const {
    const JsonValue* const resource = member(section, id);
    if(!resource) return {};
    return {std::string{textMember(*resource, "asset").value_or("")},
        std::string{textMember(*resource, "file").value_or("")}};
}

const JsonValue* ProjectFile::getValue(Containers::StringView pointer, bool withDefaults) const {
    const JsonValue* const value = valueByPointer(pointer);
    if(value || !withDefaults) return value;
    const PointerTokens path{pointer};
    if(!path.isValid()) return nullptr;
    State::Place place{&_state->defaults, 0, {}};
    // The defaults are small and not indexed.
    for(std::size_t i = 0; i != path.size() && place.value; ++i) {
        place.depth = 2;
        place = _state->child(place, path[i]);
    }
    return place.value;
}

const char* ProjectFile::whyNotCreatable(Containers::StringView pointer) const {
    const PointerTokens path{pointer};
    if(!path.isValid()) return "the pointer is not valid";
    State::Place place{&_state->document, 0, {}};
    for(std::size_t i = 0; i != path.size(); ++i) {
        const Token& token = path[i];
        const JsonValue& parent = *place.value;
        const bool isElement = isIndex(token) || isAppend(token);
        if(!parent.IsObject() && !parent.IsArray() && !parent.IsNull())
            return "it leads through a value that is neither an object nor an array";
        if(parent.IsArray() && !isElement) return "it leads through an array with a token that is no index";
        const State::Place next = _state->child(place, token);
        if(next.value) {
            place = next;
            continue;
        }
        // Nothing is there from here on; what will be made follows the tokens. Only
        // padding is left to go wrong.
        std::size_t size = parent.IsArray() ? parent.Size() : 0;
        bool array = parent.IsArray() || (parent.IsNull() && isElement);
        for(std::size_t j = i; j != path.size(); ++j) {
            const Token& missing = path[j];
            if(array && isIndex(missing) && missing.index > size + MaximumPadding)
                return "an index is too far beyond the end of its array";
            const bool last = j + 1 == path.size();
            array = !last && (isIndex(path[j + 1]) || isAppend(path[j + 1]));
            size = 0;
        }
        return nullptr;
    }
    return nullptr;
}

JsonValue& ProjectFile::createByPointer(Containers::StringView pointer, bool* existed) {
    const PointerTokens path{pointer};
    State::Place place = _state->follow(path, path.isValid() ? path.size() : 0);
    const bool found = path.isValid() && place.value;
    if(!found) {
        CORRADE_ASSERT(!whyNotCreatable(pointer),
            "ProjectFile::createByPointer():" << pointer << Utility::Debug::nospace << ":" << whyNotCreatable(pointer),
            _state->document);
        place = {&_state->document, 0, {}};
        for(std::size_t i = 0; i != path.size(); ++i) {
            const State::Place next = _state->child(place, path[i]);
            place = next.value ? next : _state->addChild(place, path[i]);
        }
    }
    if(existed) *existed = found;
    // The caller may give the value other members.
    if(place.depth == 0) membersChanged();
    if(place.depth == 1) _state->indexes.erase(std::string{place.key});
    return *place.value;
}

bool ProjectFile::eraseByPointer(Containers::StringView pointer) {
    const PointerTokens path{pointer};
    if(!path.isValid() || !path.size()) return false;
    const std::size_t last = path.size() - 1;
    const Token& token = path[last];
    const State::Place parent = _state->follow(path, last);
    if(!parent.value || !_state->child(parent, token).value) return false;
    if(parent.value->IsArray()) {
        parent.value->Erase(parent.value->Begin() + token.index);
        return true;
    }
    if(parent.depth == 0) _state->indexes.erase(std::string{token.name});
    const std::size_t position = _state->findMember(parent, token.name);
    if(MemberIndex* const index = _state->indexOf(parent)) index->removing(token.name, position);
    parent.value->EraseMember(parent.value->MemberBegin() + std::ptrdiff_t(position));
    return true;
}

} // namespace VantrelEngine
