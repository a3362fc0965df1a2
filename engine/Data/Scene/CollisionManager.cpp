#include <Vantrel/EngineData/CollisionManager.h>

namespace VantrelEngine {

using namespace Corrade::Containers::Literals;

const Corrade::Containers::StringView CollisionManager::EnumValuesCollider[]{"sphere"_s, "aabb"_s, "obb"_s};

CollisionManager::CollisionManager(std::size_t capacity): ComponentManager{"collision", capacity} { hideWithObjects(); }

}
