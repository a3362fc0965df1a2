#pragma once

#include <string>

#include <Vantrel/EngineData/Json.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace VantrelTest {

// A value as JSON text, without blanks and without any check.
inline std::string jsonText(const VantrelEngine::JsonValue& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
    value.Accept(writer);
    return buffer.GetString();
}

}
