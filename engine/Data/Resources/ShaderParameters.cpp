#include "Data/Resources/ShaderParameters.h"

#include <set>

#include <Corrade/Containers/StringStl.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;
using namespace Magnum;

namespace {

// By value.
constexpr Containers::StringView TypeNames[]{"float"_s, "vector"_s, "color"_s, "texture"_s};

} // namespace

std::vector<ShaderParameter> readParameters(const ResourceEntry& shader) {
    std::vector<ShaderParameter> parameters;
    std::set<std::string> names;
    for(const ResourceEntry& entry: shader.elements("parameters")) {
        ShaderParameter parameter;
        parameter.name = entry.text("name");
        const auto type = entry.choice("type", TypeNames);
        if(!type || parameter.name.empty()) continue;
        if(!names.insert(parameter.name).second) {
            entry.report("name", "is that of another parameter");
            continue;
        }
        parameter.type = ParameterType(*type);
        if(parameter.type != ParameterType::Texture)
            parameter.initial = readParameterValue(entry, "default", parameter.type, parameter.initial);
        parameters.push_back(std::move(parameter));
    }
    return parameters;
}

Vector4 readParameterValue(
    const ResourceEntry& entry, Containers::StringView key, ParameterType type, const Vector4& missing) {
    return type == ParameterType::Float ? entry.scalar(key, missing) : entry.vector(key, missing);
}

bool operator==(const ShaderParameter& a, const ShaderParameter& b) {
    // Not with the tolerance of vectors.
    for(std::size_t i = 0; i != 4; ++i)
        if(a.initial[i] != b.initial[i]) return false;
    return a.name == b.name && a.type == b.type;
}

} // namespace VantrelEngine
