#include "Import/Converter/Json.h"

#include <cmath>
#include <limits>

namespace VantrelImport {

const Json* member(const Json* object, const char* key) {
    if(!object || !object->IsObject()) return nullptr;
    const auto found = object->FindMember(key);
    return found == object->MemberEnd() ? nullptr : &found->value;
}

std::size_t sizeOf(const Json* list) { return list && list->IsArray() ? list->Size() : 0; }

const Json* elementOf(const Json* list, std::uint64_t index) {
    return index < sizeOf(list) ? &(*list)[rapidjson::SizeType(index)] : nullptr;
}

int asIndex(const Json* value) {
    if(!value || !value->IsInt() || value->GetInt() == std::numeric_limits<int>::max()) return Nothing;
    return value->GetInt() >= 0 ? value->GetInt() : Nothing;
}

bool asBool(const Json* value, bool otherwise) { return value && value->IsBool() ? value->GetBool() : otherwise; }

float asFloat(const Json* value, float otherwise) {
    if(!value || !value->IsNumber()) return otherwise;
    const double number = value->GetDouble();
    return std::abs(number) <= std::numeric_limits<float>::max() ? float(number) : otherwise;
}

std::uint64_t asSize(const Json* value, std::uint64_t otherwise) {
    return value && value->IsUint64() ? value->GetUint64() : otherwise;
}

std::string_view asText(const Json* value) {
    return value && value->IsString() ? std::string_view{value->GetString(), value->GetStringLength()}
                                      : std::string_view{};
}

} // namespace VantrelImport
