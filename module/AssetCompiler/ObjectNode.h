#pragma once

#include <cstdint>

#include <Vantrel/EngineData/Json.h>
#include <Vantrel/EngineData/ResourceMaps.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// What the compiler knows of an object of the document. Its uses of resources are those of its components.
struct ObjectNode: ResourceUser {
    explicit ObjectNode(std::string id): ResourceUser{std::move(id), false} {}

    // What of the object is to be compiled.
    enum class Part : std::uint8_t { None, WithoutComponents, Everything };

    // 0 where there is none yet.
    Id object = RootObject;

    // What waits for compilePending().
    Part pending = Part::None;
    bool isListedAsPending = false;

    // Of the running compilation; the parent is null for the root.
    Part wanted = Part::None;
    const JsonValue* json = nullptr;
    bool isUnderWay = false;
    // Not in the document any more, while the runtime object may still be there.
    bool isGone = false;
    // Not in the scene yet, and not to come before others are gone.
    bool isLater = false;
    bool wasCompiled = false;
    ObjectNode* parent = nullptr;
};

} // namespace VantrelEngine
