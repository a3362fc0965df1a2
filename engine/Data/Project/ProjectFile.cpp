#include "Vantrel/EngineData/ProjectFile.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include <Corrade/Utility/Assert.h>
#include <rapidjson/pointer.h>

#include "Data/Project/MemberIndex.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

using Pointer = rapidjson::GenericPointer<JsonValue>;
using Token = Pointer::Token;

// Objects with fewer members are scanned.
constexpr std::size_t IndexedMemberCount = 16;

// The JSON library wants an address also for the root.
Pointer parsed(Containers::StringView pointer) { return Pointer{pointer.data() ? pointer.data() : "", pointer.size()}; }

std::string_view nameOf(const Token& token) { return {token.name, token.length}; }

bool isIndex(const Token& token) { return token.index != rapidjson::kPointerInvalidIndex; }

bool isAppend(const Token& token) { return token.length == 1 && token.name[0] == '-'; }

rapidjson::GenericStringRef<char> reference(const Token& token) { return {token.name, token.length}; }

std::size_t scanFor(const JsonValue& object, std::string_view name) {
    for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member)
        if(std::string_view{member->name.GetString(), member->name.GetStringLength()} == name)
            return std::size_t(member - object.MemberBegin());
    return MemberIndex::NotFound;
}

JsonValue& memberAt(JsonValue& object, std::size_t position) {
    return (object.MemberBegin() + std::ptrdiff_t(position))->value;
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

    MemberIndex* indexOf(const Place& place) {
        if(place.depth != 1 || place.value->MemberCount() < IndexedMemberCount) return nullptr;
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

    // The child that the token names, value null where there is none.
    Place child(const Place& place, const Token& token) {
        Place result{nullptr, place.depth + 1, nameOf(token)};
        if(place.value->IsObject()) {
            const std::size_t position = findMember(place, nameOf(token));
            if(position != MemberIndex::NotFound) result.value = &memberAt(*place.value, position);
        } else if(place.value->IsArray() && isIndex(token) && token.index < place.value->Size()) {
            result.value = &(*place.value)[token.index];
        }
        return result;
    }

    Place follow(const Pointer& pointer, std::size_t count) {
        Place place{&document, 0, {}};
        for(std::size_t i = 0; i != count && place.value; ++i) place = child(place, pointer.GetTokens()[i]);
        return place;
    }

    Place addMember(const Place& place, const Token& token) {
        MemberIndex* const index = indexOf(place);
        place.value->AddMember(
            JsonValue{reference(token), document.GetAllocator()}, JsonValue{}, document.GetAllocator());
        if(index) index->appended(nameOf(token));
        return {&memberAt(*place.value, place.value->MemberCount() - 1), place.depth + 1, nameOf(token)};
    }

    Place addElements(const Place& place, const Token& token) {
        const std::size_t index = isAppend(token) ? place.value->Size() : token.index;
        place.value->Reserve(rapidjson::SizeType(index + 1), document.GetAllocator());
        while(place.value->Size() <= index) place.value->PushBack(JsonValue{}, document.GetAllocator());
        return {&(*place.value)[rapidjson::SizeType(index)], place.depth + 1, nameOf(token)};
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

void ProjectFile::membersChanged() { _state->indexes.clear(); }

void ProjectFile::setDefaults(JsonDocument&& defaults) { _state->defaults = std::move(defaults); }

JsonValue* ProjectFile::valueByPointer(Containers::StringView pointer) {
    const Pointer path = parsed(pointer);
    return path.IsValid() ? _state->follow(path, path.GetTokenCount()).value : nullptr;
}

const JsonValue* ProjectFile::valueByPointer(Containers::StringView pointer) const {
    // The index is made while looking; the document is not changed.
    return const_cast<ProjectFile&>(*this).valueByPointer(pointer);
}

const JsonValue* ProjectFile::getValue(Containers::StringView pointer, bool withDefaults) const {
    const JsonValue* const value = valueByPointer(pointer);
    if(value || !withDefaults) return value;
    const Pointer path = parsed(pointer);
    return path.IsValid() ? path.Get(std::as_const(_state->defaults)) : nullptr;
}

const char* ProjectFile::whyNotCreatable(Containers::StringView pointer) const {
    const Pointer path = parsed(pointer);
    if(!path.IsValid()) return "the pointer is not valid";
    State::Place place{&_state->document, 0, {}};
    for(std::size_t i = 0; i != path.GetTokenCount(); ++i) {
        const Token& token = path.GetTokens()[i];
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
        for(std::size_t j = i; j != path.GetTokenCount(); ++j) {
            const Token& missing = path.GetTokens()[j];
            if(array && isIndex(missing) && missing.index > size + MaximumPadding)
                return "an index is too far beyond the end of its array";
            const bool last = j + 1 == path.GetTokenCount();
            array = !last && (isIndex(path.GetTokens()[j + 1]) || isAppend(path.GetTokens()[j + 1]));
            size = 0;
        }
        return nullptr;
    }
    return nullptr;
}

JsonValue& ProjectFile::createByPointer(Containers::StringView pointer, bool* existed) {
    CORRADE_ASSERT(!whyNotCreatable(pointer),
        "ProjectFile::createByPointer():" << pointer << Utility::Debug::nospace << ":" << whyNotCreatable(pointer),
        _state->document);
    const Pointer path = parsed(pointer);
    State::Place place{&_state->document, 0, {}};
    bool found = true;
    for(std::size_t i = 0; i != path.GetTokenCount(); ++i) {
        const Token& token = path.GetTokens()[i];
        const State::Place next = _state->child(place, token);
        found = found && next.value;
        place = next.value ? next : _state->addChild(place, token);
    }
    if(existed) *existed = found;
    // The caller may give the value other members.
    if(place.depth == 0) _state->indexes.clear();
    if(place.depth == 1) _state->indexes.erase(std::string{place.key});
    return *place.value;
}

bool ProjectFile::eraseByPointer(Containers::StringView pointer) {
    const Pointer path = parsed(pointer);
    if(!path.IsValid() || !path.GetTokenCount()) return false;
    const std::size_t last = path.GetTokenCount() - 1;
    const Token& token = path.GetTokens()[last];
    const State::Place parent = _state->follow(path, last);
    if(!parent.value || !_state->child(parent, token).value) return false;
    if(parent.value->IsArray()) {
        parent.value->Erase(parent.value->Begin() + token.index);
        return true;
    }
    if(parent.depth == 0) _state->indexes.erase(std::string{nameOf(token)});
    const std::size_t position = _state->findMember(parent, nameOf(token));
    if(MemberIndex* const index = _state->indexOf(parent)) index->removing(nameOf(token), position);
    parent.value->EraseMember(parent.value->MemberBegin() + std::ptrdiff_t(position));
    return true;
}

} // namespace VantrelEngine
