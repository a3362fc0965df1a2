#include "Data/Project/DocumentCheck.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include "Data/Project/DuplicateMembers.h"
#include "Data/Project/KnownKeys.h"
#include "Data/Project/ParentLinks.h"
#include "Vantrel/EngineData/Types.h"

namespace VantrelEngine {

namespace {

using Kind = DocumentProblem::Kind;

std::string textOf(const JsonValue& text) { return {text.GetString(), text.GetStringLength()}; }

// Where in the document: the way down from the root. An element of an array has an index.
struct Step {
    const Step* up;
    const JsonValue* key;
    int index;
};

std::vector<const Step*> stepsTo(const Step* last) {
    std::vector<const Step*> steps;
    for(; last; last = last->up) steps.push_back(last);
    std::reverse(steps.begin(), steps.end());
    return steps;
}

void place(DocumentProblem& problem, const Step* last) {
    const std::vector<const Step*> steps = stepsTo(last);
    std::size_t i = 0;
    if(steps.size() > 1 && textOf(*steps[0]->key) == "objects") {
        problem.object = textOf(*steps[1]->key);
        i = 2;
        if(steps.size() > 3 && !steps[3]->key && textOf(*steps[2]->key) == "components") {
            problem.component = steps[3]->index;
            i = 4;
        }
    }
    for(; i < steps.size(); ++i) {
        if(!problem.key.empty()) problem.key += '/';
        problem.key += steps[i]->key ? textOf(*steps[i]->key) : std::to_string(steps[i]->index);
    }
}

class Check {
public:
    explicit Check(JsonDocument& document): _document{document} {}

    std::vector<DocumentProblem> run() {
        removeDuplicates(_document, nullptr, 0);
        if(!_document.HasMember("objects"))
            _document.AddMember("objects", JsonValue{rapidjson::kObjectType}, _document.GetAllocator());
        _section = 0;
        for(auto section = _document.MemberBegin(); section != _document.MemberEnd(); ++section, ++_section) {
            _entry = 0;
            checkSection(textOf(section->name), section->value);
        }
        return inOrder();
    }

private:
    // A problem, and the positions of the section and of the member in it that it stands in.
    struct Found {
        std::size_t section, entry;
        DocumentProblem problem;
    };

    void add(Kind kind, std::string object, int component, std::string key, std::string reason) {
        _found.push_back({_section, _entry, {kind, std::move(object), component, std::move(key), std::move(reason)}});
    }

    std::vector<DocumentProblem> inOrder() {
        std::stable_sort(_found.begin(), _found.end(), [](const Found& a, const Found& b) {
            return std::make_pair(a.section, a.entry) < std::make_pair(b.section, b.entry);
        });
        std::vector<DocumentProblem> problems;
        for(Found& found: _found) problems.push_back(std::move(found.problem));
        return problems;
    }

    void setPosition(std::size_t depth, std::size_t position) {
        if(depth == 0) {
            _section = position;
            _entry = 0;
        }
        if(depth == 1) _entry = position;
    }

    void removeDuplicates(JsonValue& value, const Step* here, std::size_t depth) {
        if(value.IsObject()) {
            removeDuplicateMembers(value, here, depth);
            std::size_t position = 0;
            for(auto member = value.MemberBegin(); member != value.MemberEnd(); ++member) {
                setPosition(depth, position++);
                const Step step{here, &member->name, 0};
                removeDuplicates(member->value, &step, depth + 1);
            }
        } else if(value.IsArray()) {
            for(rapidjson::SizeType i = 0; i != value.Size(); ++i) {
                const Step step{here, nullptr, int(i)};
                removeDuplicates(value[i], &step, depth + 1);
            }
        }
    }

    void removeDuplicateMembers(JsonValue& object, const Step* here, std::size_t depth) {
        const std::vector<rapidjson::SizeType> duplicates = duplicateMembers(object);
        if(duplicates.empty()) return;
        JsonValue kept{rapidjson::kObjectType};
        auto duplicate = duplicates.begin();
        rapidjson::SizeType position = 0;
        for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member, ++position) {
            if(duplicate == duplicates.end() || *duplicate != position) {
                kept.AddMember(member->name, member->value, _document.GetAllocator());
                continue;
            }
            ++duplicate;
            setPosition(depth, kept.MemberCount());
            const Step step{here, &member->name, 0};
            DocumentProblem problem{
                Kind::Repair, {}, -1, {}, "the key stands here once more; the later value was removed"};
            place(problem, &step);
            _found.push_back({_section, _entry, std::move(problem)});
        }
        object.Swap(kept);
    }

    void checkSection(const std::string& name, JsonValue& section) {
        if(!isSection(name)) return;
        if(!section.IsObject())
            add(Kind::Refusal, {}, -1, name, "not an object");
        else if(name == "objects")
            checkObjects(section);
        else if(name == "settings")
            checkSettings(section);
    }

    void checkObjects(JsonValue& objects) {
        if(objects.MemberCount() > MaxObjects)
            add(Kind::Refusal, {}, -1, "objects",
                std::to_string(objects.MemberCount()) + " objects are more than the " + std::to_string(MaxObjects) +
                    " that a project can have");
        const ParentLinks links{objects};
        const std::vector<std::uint32_t> cycles = links.cycles();
        auto cycle = cycles.begin();
        for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object, ++_entry) {
            const std::string id = textOf(object->name);
            if(id.empty()) add(Kind::Refusal, {}, -1, "objects", "an object has an empty id");
            if(!object->value.IsObject()) {
                add(Kind::Refusal, id, -1, {}, "not an object");
                continue;
            }
            checkKeys(id, -1, {}, object->value, objectKeys());
            if(cycle != cycles.end() && *cycle == _entry) {
                breakCycle(id, object->value);
                ++cycle;
            } else if(links.parentOf(_entry) == ParentLinks::Missing) {
                add(Kind::Warning, id, -1, "parent",
                    "there is no object \"" + std::string{parentTextOf(object->value)} + "\", the root is taken");
            }
            if(const JsonValue* const components = valueAtKey(object->value, "components"))
                checkComponents(id, *components);
        }
    }

    void breakCycle(const std::string& id, JsonValue& object) {
        add(Kind::Repair, id, -1, "parent",
            "\"" + std::string{parentTextOf(object)} + "\" makes the object its own ancestor, it went to the root");
        object.FindMember("parent")->value.SetString("", 0, _document.GetAllocator());
    }

    void checkComponents(const std::string& id, const JsonValue& components) {
        if(!components.IsArray()) return;
        for(rapidjson::SizeType i = 0; i != components.Size(); ++i) checkComponent(id, int(i), components[i]);
    }

    void checkComponent(const std::string& id, int index, const JsonValue& component) {
        if(!component.IsObject()) return add(Kind::Warning, id, index, {}, "not an object, skipped");
        const JsonValue* const type = valueAtKey(component, "type");
        if(!type || !type->IsString())
            return add(Kind::Warning, id, index, "type",
                type ? "not usable, expected is a text" : "missing, expected is a text");
        checkKeys(id, index, {}, component, componentKeys({type->GetString(), type->GetStringLength()}));
    }

    void checkSettings(JsonValue& settings) {
        clampKernelSize(settings);
        checkKeys({}, -1, "settings/", settings, settingsKeys());
    }

    void clampKernelSize(JsonValue& settings) {
        auto* const size = const_cast<JsonValue*>(valueAtKey(settings, BloomKernelSizeKey));
        if(!size || !size->IsNumber()) return;
        const double old = size->GetDouble(), clamped = std::min(std::max(old, 0.0), MaxBloomKernelSize);
        if(old == clamped) return;
        size->SetInt(int(clamped));
        add(Kind::Repair, {}, -1, std::string{"settings/"} + BloomKernelSizeKey,
            shortText(old) + " is not between 0 and 21, it became " + std::to_string(int(clamped)));
    }

    static std::string shortText(double number) {
        char text[32];
        std::snprintf(text, sizeof(text), "%.6g", number);
        return text;
    }

    void checkKeys(const std::string& object, int component, const std::string& prefix, const JsonValue& value,
        Corrade::Containers::ArrayView<const KnownKey> keys) {
        for(const KnownKey& known: keys)
            if(const JsonValue* const found = valueAtKey(value, known.key))
                if(const char* const reason = whyNotUsable(*found, known.type))
                    add(Kind::Unusable, object, component, prefix + known.key, reason);
    }

    JsonDocument& _document;
    std::vector<Found> _found;
    std::size_t _section = 0, _entry = 0;
};

} // namespace

std::vector<DocumentProblem> checkDocument(JsonDocument& document) { return Check{document}.run(); }

} // namespace VantrelEngine
