#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Panels/Schema/SchemaKey.h"

namespace VantrelEngine {

class ProjectFile;

// What a material gives to its shader: the parameters of the shader of its pipeline, a key each, from the material on.
// Without a pipeline or a shader there are none. The font stands first where the shader draws text.
class MaterialSchema {
public:
    explicit MaterialSchema() = default;
    explicit MaterialSchema(const ProjectFile& file, std::string_view material);

    SchemaKeys keys() const { return {_keys.data(), _keys.size()}; }
    // The shader's name; empty without one.
    const std::string& shader() const { return _shader; }

private:
    const char* keep(std::string text) { return _texts.emplace_back(std::move(text)).c_str(); }
    void addParameter(const JsonValue& parameter);

    // What the keys point into.
    std::deque<std::string> _texts;
    std::vector<SchemaKey> _keys;
    std::string _shader;
};

} // namespace VantrelEngine
