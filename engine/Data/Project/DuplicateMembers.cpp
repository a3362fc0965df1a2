#include "Data/Project/DuplicateMembers.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace VantrelEngine {

namespace {

// Up to here comparing each with each takes less time than a set.
constexpr rapidjson::SizeType ScannedCount = 16;

std::string_view keyAt(const JsonValue& object, rapidjson::SizeType i) {
    const JsonValue& name = (object.MemberBegin() + std::ptrdiff_t(i))->name;
    return {name.GetString(), name.GetStringLength()};
}

bool isAmongFirst(const JsonValue& object, rapidjson::SizeType count, std::string_view key) {
    for(rapidjson::SizeType i = 0; i != count; ++i)
        if(keyAt(object, i) == key) return true;
    return false;
}

} // namespace

std::vector<rapidjson::SizeType> duplicateMembers(const JsonValue& object) {
    std::vector<rapidjson::SizeType> duplicates;
    const rapidjson::SizeType count = object.MemberCount();
    std::unordered_set<std::string_view> keys;
    if(count > ScannedCount) keys.reserve(count);
    for(rapidjson::SizeType i = 0; i != count; ++i) {
        const std::string_view key = keyAt(object, i);
        if(count > ScannedCount ? !keys.insert(key).second : isAmongFirst(object, i, key)) duplicates.push_back(i);
    }
    return duplicates;
}

} // namespace VantrelEngine
