#include "Utilities/ClipOrigin.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EditorData/EditorData.h>
#include <VantrelHost/FileFingerprint.h>

#include "Import/ConverterLines.h"
#include "Import/References.h"
#include "Utilities/DocumentPlaces.h"
#include "Utilities/ResourceChecksum.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr const char* Project = "project";
constexpr const char* Places = "places";
constexpr const char* Resources = "resources";

constexpr struct {
    const char* key;
    unsigned count;
} Numbers[]{{"translation", 3}, {"rotation", 4}, {"scaling", 3}};

std::string digits(std::uint64_t number) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(number));
    return text;
}

// As long as it is open it is the same under any name, and under its name in whatever editor.
std::vector<std::string> namesOf(const EditorData& data) {
    std::vector<std::string> names{digits(data.editorNumber) + '-' + std::to_string(data.projectNumber)};
    if(!data.projectPath.empty()) names.push_back(digits(checksum(data.projectPath)));
    return names;
}

class OriginWriter {
public:
    OriginWriter(JsonDocument& clip, const EditorData& data):
        _clip{clip}, _data{data}, _documentPlaces{data.project()} {}

    void run() {
        JsonValue& objects = *memberOf(_clip, "objects");
        for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object)
            _copied.insert(textOf(object->name));
        for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object) {
            addPlace(*object);
            for(const Reference& reference: referencesOf(_clip, "objects", object->value)) addResource(reference);
        }
        JsonValue names{rapidjson::kArrayType};
        for(const std::string& name: namesOf(_data)) names.PushBack(text(name), allocator());
        _clip.AddMember(rapidjson::StringRef(Project), names, allocator());
        _clip.AddMember(rapidjson::StringRef(Places), _places, allocator());
        _clip.AddMember(rapidjson::StringRef(Resources), _resources, allocator());
    }

private:
    JsonAllocator& allocator() { return _clip.GetAllocator(); }
    JsonValue text(const std::string& value) {
        return JsonValue{value.data(), rapidjson::SizeType(value.size()), allocator()};
    }
    JsonValue numbers(const Float* values, unsigned count) {
        JsonValue array{rapidjson::kArrayType};
        for(unsigned i = 0; i != count; ++i) array.PushBack(double(values[i]), allocator());
        return array;
    }

    void addPlace(const JsonValue::Member& object) {
        const std::string parent = textMember(object.value, "parent");
        if(_copied.count(parent) || !_data.project().member("objects", parent)) return;
        const ObjectPlacement place = _documentPlaces.of(textOf(object.name));
        const Vector4 rotation{place.rotation.vector(), place.rotation.scalar()};
        const Float* const values[]{place.translation.data(), rotation.data(), place.scaling.data()};
        JsonValue value{rapidjson::kObjectType};
        for(std::size_t i = 0; i != 3; ++i)
            value.AddMember(rapidjson::StringRef(Numbers[i].key), numbers(values[i], Numbers[i].count), allocator());
        _places.AddMember(text(textOf(object.name)), value, allocator());
    }

    void addResource(const Reference& reference) {
        const std::string id = textOf(*reference.id), name = reference.section + ('/' + id);
        if(!_seen.insert(name).second) return;
        if(const auto sum = resourceChecksum(_data.project(), reference.section, id))
            _resources.AddMember(text(name), text(digits(*sum)), allocator());
    }

    JsonDocument& _clip;
    const EditorData& _data;
    DocumentPlaces _documentPlaces;
    std::unordered_set<std::string> _copied, _seen;
    JsonValue _places{rapidjson::kObjectType}, _resources{rapidjson::kObjectType};
};

bool areNumbers(const JsonValue* value, unsigned count) {
    const auto isUsable = [](const JsonValue& number) {
        return number.IsNumber() && std::abs(number.GetDouble()) <= double(std::numeric_limits<Float>::max());
    };
    return value && value->IsArray() && value->Size() == count && std::all_of(value->Begin(), value->End(), isUsable);
}

bool isPlace(const JsonValue& value) {
    const auto isThere = [&](const auto& numbers) { return areNumbers(memberOf(value, numbers.key), numbers.count); };
    return value.IsObject() && value.MemberCount() == std::size(Numbers) &&
        std::all_of(std::begin(Numbers), std::end(Numbers), isThere);
}

bool isText(const JsonValue& value) { return value.IsString(); }

// Where a member is there, an object of such values.
std::string whyNot(const JsonDocument& clip, const char* key, bool (*isValue)(const JsonValue&)) {
    const JsonValue* const values = memberOf(clip, key);
    if(!values) return {};
    if(!values->IsObject()) return std::string{key} + ": not an object";
    for(auto value = values->MemberBegin(); value != values->MemberEnd(); ++value)
        if(!isValue(value->value)) return key + ('/' + shownText(textOf(value->name))) + ": cannot be used";
    return {};
}

} // namespace

void addOrigin(JsonDocument& clip, const EditorData& data) { OriginWriter{clip, data}.run(); }

std::string whyNoOrigin(const JsonDocument& clip) {
    const JsonValue* const names = memberOf(clip, Project);
    if(names && (!names->IsArray() || !std::all_of(names->Begin(), names->End(), isText)))
        return std::string{Project} + ": not a list of texts";
    const std::string reason = whyNot(clip, Places, isPlace);
    return reason.empty() ? whyNot(clip, Resources, isText) : reason;
}

ClipOrigin::ClipOrigin(const JsonDocument& clip) {
    if(const JsonValue* const names = memberOf(clip, Project))
        for(const JsonValue& name: names->GetArray()) _names.insert(textOf(name));
    if(const JsonValue* const places = memberOf(clip, Places))
        for(auto place = places->MemberBegin(); place != places->MemberEnd(); ++place)
            _places.emplace(textOf(place->name), &place->value);
    if(const JsonValue* const resources = memberOf(clip, Resources))
        for(auto resource = resources->MemberBegin(); resource != resources->MemberEnd(); ++resource)
            _checksums.emplace(textOf(resource->name), textOf(resource->value));
}

bool ClipOrigin::isProject(const EditorData& data) const {
    const std::vector<std::string> names = namesOf(data);
    return std::any_of(names.begin(), names.end(), [this](const std::string& name) { return _names.count(name); });
}

const JsonValue* ClipOrigin::placeOf(const std::string& id) const {
    const auto place = _places.find(id);
    return place == _places.end() ? nullptr : place->second;
}

bool ClipOrigin::hasSame(const ProjectFile& project, const std::string& section, const std::string& id) {
    const std::string name = section + '/' + id;
    const auto known = _isSame.find(name);
    if(known != _isSame.end()) return known->second;
    const auto wanted = _checksums.find(name);
    const auto sum = wanted == _checksums.end() ? std::nullopt : resourceChecksum(project, section, id);
    return _isSame.emplace(name, sum && digits(*sum) == wanted->second).first->second;
}

} // namespace VantrelEngine
