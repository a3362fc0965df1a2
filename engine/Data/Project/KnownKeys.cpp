#include "Data/Project/KnownKeys.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace VantrelEngine {

using namespace Corrade;

namespace {

using Keys = Containers::ArrayView<const KnownKey>;

constexpr KnownKey ObjectKeys[]{{"name", KeyType::Text}, {"parent", KeyType::Text}, {"skin", KeyType::Text},
    {"translation", KeyType::Vector3}, {"rotation", KeyType::Rotation}, {"scaling", KeyType::Vector3},
    {"components", KeyType::Array}};

constexpr KnownKey MeshKeys[]{{"active", KeyType::Truth}, {"mesh", KeyType::Object}, {"mesh/mesh", KeyType::Text},
    {"mesh/material", KeyType::Text}, {"mesh/skin", KeyType::Text}};

constexpr KnownKey CollisionKeys[]{{"active", KeyType::Truth}, {"collision", KeyType::Object},
    {"collision/collider", KeyType::Text}, {"collision/groups", KeyType::UnsignedNumber},
    {"collision/sphere", KeyType::Object}, {"collision/sphere/radius", KeyType::Number},
    {"collision/aabb", KeyType::Object}, {"collision/aabb/extents", KeyType::Vector3},
    {"collision/obb", KeyType::Object}, {"collision/obb/extents", KeyType::Vector3}};

constexpr KnownKey AnimationKeys[]{{"active", KeyType::Truth}, {"animation", KeyType::Object},
    {"animation/preview", KeyType::Truth}, {"animation/playCount", KeyType::WholeNumber},
    {"animation/speed", KeyType::Number}, {"animation/animation", KeyType::Text},
    {"animation/retarget", KeyType::Truth}, {"animation/autoplay", KeyType::Truth}};

constexpr KnownKey LightKeys[]{{"active", KeyType::Truth}, {"light", KeyType::Object},
    {"light/color", KeyType::Vector3}, {"light/intensity", KeyType::Number}, {"light/type", KeyType::Text},
    {"light/outerAngle", KeyType::Number}, {"light/innerAngle", KeyType::Number}, {"light/shadows", KeyType::Truth},
    {"light/shadowRange", KeyType::Number}, {"light/shadowBias", KeyType::Number},
    {"light/shadowNormalBias", KeyType::Number}, {"light/shadowTexelSize", KeyType::Number},
    {"light/cascadeCount", KeyType::WholeNumber}};

constexpr KnownKey ViewKeys[]{{"active", KeyType::Truth}, {"view", KeyType::Object}, {"view/fov", KeyType::Number},
    {"view/near", KeyType::Number}, {"view/far", KeyType::NumberOrInfinity}};

constexpr KnownKey InputKeys[]{{"active", KeyType::Truth}, {"input", KeyType::Object}, {"input/type", KeyType::Text}};

constexpr KnownKey TextKeys[]{{"active", KeyType::Truth}, {"text", KeyType::Object}, {"text/text", KeyType::Text},
    {"text/alignment", KeyType::Text}, {"text/justification", KeyType::Text},
    {"text/characterSpacing", KeyType::Number}, {"text/lineSpacing", KeyType::Number}, {"text/effect", KeyType::Text},
    {"text/material", KeyType::Text}};

constexpr KnownKey PhysXKeys[]{{"active", KeyType::Truth}, {"physx", KeyType::Object}, {"physx/mass", KeyType::Number},
    {"physx/staticFriction", KeyType::Number}, {"physx/dynamicFriction", KeyType::Number},
    {"physx/bounciness", KeyType::Number}, {"physx/linearDamping", KeyType::Number},
    {"physx/angularDamping", KeyType::Number}, {"physx/shape", KeyType::Text},
    {"physx/groups", KeyType::UnsignedNumber}, {"physx/block", KeyType::UnsignedNumber},
    {"physx/lockAxis", KeyType::UnsignedNumber}, {"physx/static", KeyType::Truth}, {"physx/gravity", KeyType::Truth},
    {"physx/kinematic", KeyType::Truth}, {"physx/simulate", KeyType::Truth}, {"physx/allowSimulation", KeyType::Truth},
    {"physx/allowQuery", KeyType::Truth}, {"physx/trigger", KeyType::Truth}, {"physx/sphere", KeyType::Object},
    {"physx/sphere/radius", KeyType::Number}, {"physx/capsule", KeyType::Object},
    {"physx/capsule/radius", KeyType::Number}, {"physx/capsule/halfHeight", KeyType::Number},
    {"physx/box", KeyType::Object}, {"physx/box/extents", KeyType::Vector3}, {"physx/convexMesh", KeyType::Object},
    {"physx/convexMesh/mesh", KeyType::Text}, {"physx/convexMesh/scaling", KeyType::Vector3},
    {"physx/triangleMesh", KeyType::Object}, {"physx/triangleMesh/mesh", KeyType::Text},
    {"physx/triangleMesh/scaling", KeyType::Vector3}};

constexpr KnownKey SettingsKeys[]{{"rendering", KeyType::Object}, {"rendering/clearColor", KeyType::Vector4},
    {"rendering/bloom", KeyType::Object}, {"rendering/bloom/enabled", KeyType::Truth},
    {"rendering/bloom/passes", KeyType::WholeNumber}, {BloomKernelSizeKey, KeyType::Number},
    {"rendering/bloom/threshold", KeyType::Number}, {"rendering/bloom/intensity", KeyType::Number},
    {"rendering/hdr", KeyType::Object}, {"rendering/hdr/exposure", KeyType::Number},
    {"rendering/environment", KeyType::Object}, {"rendering/environment/image", KeyType::Text},
    {"rendering/environment/intensity", KeyType::Number}, {"rendering/environment/rotation", KeyType::Number},
    {"rendering/environment/background", KeyType::Truth}, {"rendering/usePreZ", KeyType::Truth},
    {"rendering/useMultiDraw", KeyType::Truth}, {"rendering/useFrustumCulling", KeyType::Truth},
    {"rendering/textureAtlasSize", KeyType::Vector2i}, {"rendering/compressedTextureAtlasSize", KeyType::Vector2i},
    {"editor", KeyType::Object}, {"editor/camera", KeyType::Object}, {"editor/camera/near", KeyType::Number},
    {"editor/camera/far", KeyType::NumberOrInfinity}, {"editor/camera/pitch", KeyType::Number},
    {"editor/camera/yaw", KeyType::Number}, {"physx", KeyType::Object}, {"physx/enable", KeyType::Truth}};

struct ComponentType {
    std::string_view name;
    Keys keys;
};

constexpr std::string_view Sections[]{"objects", "meshes", "materials", "textures", "images", "shaders", "pipelines",
    "animations", "skins", "fonts", "settings"};

bool isWhole(const JsonValue& value, double min, double max) {
    if(!value.IsNumber()) return false;
    const double number = value.GetDouble();
    return number == std::floor(number) && number >= min && number <= max;
}

bool isInt(const JsonValue& value) {
    return isWhole(value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
}

bool isUnsignedInt(const JsonValue& value) { return isWhole(value, 0, std::numeric_limits<std::uint32_t>::max()); }

bool isArrayOf(const JsonValue& value, rapidjson::SizeType size, bool (*isElement)(const JsonValue&)) {
    return value.IsArray() && value.Size() == size && std::all_of(value.Begin(), value.End(), isElement);
}

bool isNumber(const JsonValue& value) { return value.IsNumber(); }

bool isNotZero(const JsonValue& value) { return value.GetDouble() != 0.0; }

const char* usableIf(bool usable, const char* reason) { return usable ? nullptr : reason; }

constexpr const char* BeyondFloat = "not usable: too large for a float";

const char* whyNoNumber(const JsonValue& value) {
    if(isBeyondFloat(value)) return BeyondFloat;
    return usableIf(value.IsNumber(), "not usable, expected is a number");
}

const char* whyNoVector(const JsonValue& value, rapidjson::SizeType size, const char* reason) {
    if(!isArrayOf(value, size, isNumber)) return reason;
    return usableIf(std::none_of(value.Begin(), value.End(), isBeyondFloat), BeyondFloat);
}

const char* whyNoRotation(const JsonValue& value) {
    constexpr const char* reason = "not usable, expected is an array of 4 numbers, not all zero";
    if(const char* const other = whyNoVector(value, 4, reason)) return other;
    return usableIf(std::any_of(value.Begin(), value.End(), isNotZero), reason);
}

} // namespace

Keys objectKeys() { return ObjectKeys; }

Keys componentKeys(std::string_view type) {
    static const ComponentType types[]{{"mesh", MeshKeys}, {"collision", CollisionKeys}, {"animation", AnimationKeys},
        {"light", LightKeys}, {"view", ViewKeys}, {"input", InputKeys}, {"text", TextKeys}, {"physx", PhysXKeys}};
    for(const ComponentType& known: types)
        if(known.name == type) return known.keys;
    return {};
}

Keys settingsKeys() { return SettingsKeys; }

const JsonValue* valueAtKey(const JsonValue& value, std::string_view key) {
    const JsonValue* place = &value;
    for(std::size_t begin = 0; begin <= key.size();) {
        const std::size_t end = std::min(key.find('/', begin), key.size());
        if(!place->IsObject()) return nullptr;
        const auto member =
            place->FindMember(JsonValue{rapidjson::StringRef(key.data() + begin, rapidjson::SizeType(end - begin))});
        if(member == place->MemberEnd()) return nullptr;
        place = &member->value;
        begin = end + 1;
    }
    return place;
}

bool isSection(std::string_view name) {
    return std::find(std::begin(Sections), std::end(Sections), name) != std::end(Sections);
}

const char* whyNotUsable(const JsonValue& value, KeyType type) {
    switch(type) {
    case KeyType::Text: return usableIf(value.IsString(), "not usable, expected is a text");
    case KeyType::Truth: return usableIf(value.IsBool(), "not usable, expected is true or false");
    case KeyType::Number: return whyNoNumber(value);
    case KeyType::NumberOrInfinity: return usableIf(value.IsNumber(), "not usable, expected is a number");
    case KeyType::WholeNumber: return usableIf(isInt(value), "not usable, expected is a whole number");
    case KeyType::UnsignedNumber:
        return usableIf(isUnsignedInt(value), "not usable, expected is a whole number that is not negative");
    case KeyType::Vector2i:
        return usableIf(isArrayOf(value, 2, isInt), "not usable, expected is an array of 2 whole numbers");
    case KeyType::Vector3: return whyNoVector(value, 3, "not usable, expected is an array of 3 numbers");
    case KeyType::Vector4: return whyNoVector(value, 4, "not usable, expected is an array of 4 numbers");
    case KeyType::Rotation: return whyNoRotation(value);
    case KeyType::Object: return usableIf(value.IsObject(), "not usable, expected is an object");
    case KeyType::Array: return usableIf(value.IsArray(), "not usable, expected is an array");
    }
    return nullptr;
}

bool isBeyondFloat(const JsonValue& value) {
    return value.IsNumber() && std::abs(value.GetDouble()) > double(std::numeric_limits<float>::max());
}

} // namespace VantrelEngine
