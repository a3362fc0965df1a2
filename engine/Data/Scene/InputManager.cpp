#include <Vantrel/EngineData/InputManager.h>

namespace VantrelEngine {

using namespace Corrade::Containers::Literals;

const Corrade::Containers::StringView InputManager::EnumValuesInputType[]{
    "keyboard"_s, "mouse"_s, "gamepad"_s, "touch"_s};

InputManager::InputManager(std::size_t capacity): ComponentManager{"input", capacity} {}

}
