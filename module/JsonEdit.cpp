#include "JsonEdit.h"

#include <algorithm>
#include <charconv>

#include <Vantrel/EngineData/ProjectFile.h>

#include "Utils/Assert.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

bool isEmptyContainer(const JsonValue& value) {
    return (value.IsObject() && value.ObjectEmpty()) || (value.IsArray() && value.Empty());
}

// The parent of a value that is to be inserted, or null where there is none and
// none is made here.
JsonValue* parentForInsertion(ProjectFile& file, Containers::StringView path, Containers::StringView parentPath) {
    if(JsonValue* const parent = file.valueByPointer(parentPath)) return parent;
    const JsonValue* const known = file.getValue(path, true);
    if(!known || known->IsObject() || known->IsArray()) return nullptr;
    JsonValue& parent = file.createByPointer(parentPath);
    parent.SetObject();
    return &parent;
}

void insertElement(ProjectFile& file, JsonValue& array, const JsonValue& value, std::size_t index) {
    array.PushBack(copyOf(value, file.allocator()), file.allocator());
    for(std::size_t i = array.Size() - 1; i != index; --i)
        array[rapidjson::SizeType(i)].Swap(array[rapidjson::SizeType(i - 1)]);
}

} // namespace

JsonValue copyOf(const JsonValue& value, JsonAllocator& allocator) {
    if(value.IsArray()) {
        JsonValue copy{rapidjson::kArrayType};
        copy.Reserve(value.Size(), allocator);
        for(const JsonValue& element: value.GetArray()) copy.PushBack(copyOf(element, allocator), allocator);
        return copy;
    }
    if(value.IsObject()) {
        JsonValue copy{rapidjson::kObjectType};
        for(const auto& member: value.GetObject())
            copy.AddMember(copyOf(member.name, allocator), copyOf(member.value, allocator), allocator);
        return copy;
    }
    if(value.IsString()) return JsonValue{value.GetString(), value.GetStringLength(), allocator};
    return JsonValue{value, allocator};
}

SplitPath splitLast(Containers::StringView path) {
    const Containers::StringView slash = path.findLast('/');
    if(!slash) return {{}, path};
    return {path.prefix(std::size_t(slash.begin() - path.begin())), path.suffix(slash.end())};
}

bool isIndexToken(Containers::StringView token) {
    if(token.hasPrefix('-')) token = token.exceptPrefix(1);
    return !token.isEmpty() && std::all_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void replaceValue(ProjectFile& file, Containers::StringView path, const JsonValue& value) {
    file.createByPointer(path) = copyOf(value, file.allocator());
}

void insertValue(ProjectFile& file, Containers::StringView path, const JsonValue& value) {
    const SplitPath split = splitLast(path);
    JsonValue* const parent = parentForInsertion(file, path, split.parent);
    if(parent && parent->IsObject()) return replaceValue(file, path, value);

    VANTREL_ASSERT_SPELLED(isIndexToken(split.token), "value.IsArray()", "ChangeManager", 285);
    bool existed = false;
    JsonValue& array = file.createByPointer(split.parent, &existed);
    if(!existed) array.SetArray();
    VANTREL_ASSERT_SPELLED(array.IsArray(), "value.IsArray()", "ChangeManager", 285);

    std::size_t index = 0;
    std::from_chars(split.token.begin(), split.token.end(), index);
    if(index >= array.Size()) return replaceValue(file, path, value);
    insertElement(file, array, value, index);
}

void eraseValue(ProjectFile& file, Containers::StringView path) {
    file.eraseByPointer(path);
    Containers::StringView container = splitLast(path).parent;
    while(!container.isEmpty()) {
        const JsonValue* const value = file.valueByPointer(container);
        const Containers::StringView above = splitLast(container).parent;
        if(!value || !isEmptyContainer(*value) || above.isEmpty()) return;
        file.eraseByPointer(container);
        container = above;
    }
}

Containers::StringView prunedWith(ProjectFile& file, Containers::StringView path) {
    Containers::StringView pruned;
    Containers::StringView container = splitLast(path).parent;
    while(!container.isEmpty()) {
        const JsonValue* const value = file.valueByPointer(container);
        const Containers::StringView above = splitLast(container).parent;
        const bool hasOne =
            value && ((value->IsObject() && value->MemberCount() == 1) || (value->IsArray() && value->Size() == 1));
        if(!hasOne || above.isEmpty()) return pruned;
        pruned = container;
        container = above;
    }
    return pruned;
}

} // namespace VantrelEngine
