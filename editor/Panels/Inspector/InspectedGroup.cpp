#include "Panels/Inspector/InspectedGroup.h"

#include <algorithm>

#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/Refusal.h"
#include "Panels/Inspector/UnknownKeys.h"

namespace VantrelEngine {

void InspectedGroup::addMaterialKeys(MaterialSchema schema) {
    _material = std::make_unique<MaterialSchema>(std::move(schema));
    addKeys(_material->keys());
}

void InspectedGroup::addUnknownKeys(std::vector<const char*> hidden) {
    std::vector<SchemaKey> known = rows;
    for(const char* const key: hidden) known.push_back({key, "", KeyKind::Raw, nullptr, ""});
    for(const std::string& key: unknownKeys(values, known)) {
        const char* const text = _texts.emplace_back(key).c_str();
        rows.push_back({text, key.empty() ? "Value" : text, KeyKind::Raw, nullptr, "Not a key that the editor knows."});
    }
}

const CommonValue& InspectedGroup::common(std::size_t row, const TypedAngles& angles) const {
    _common.resize(rows.size());
    std::optional<CommonValue>& common = _common[row];
    if(!common) common = commonValue(rows[row], bases, values, angles);
    return *common;
}

bool InspectedGroup::isShown(std::size_t row) const {
    const SchemaKey& key = rows[row];
    if(key.kind == KeyKind::Group) return common(row, {}).whyNotShown && !common(row, {}).isMissing;
    if(!key.onlyOf) return true;
    const auto other = std::find_if(rows.begin(), rows.end(),
        [&](const SchemaKey& candidate) { return std::string_view{candidate.key} == key.onlyOf; });
    if(other == rows.end()) return true;
    const CommonValue& value = common(std::size_t(other - rows.begin()), {});
    // Where it is not clear which ones count, all are shown.
    if(value.isMixed || value.whyNotShown || !value.value.IsString()) return true;
    const std::vector<std::string> wanted = splitChoices(key.onlyFor);
    return std::find(wanted.begin(), wanted.end(), value.value.GetString()) != wanted.end();
}

} // namespace VantrelEngine
