#pragma once

#include <Corrade/Containers/StringView.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

// Objects that listen to an input device ("input").
class CORRADE_VISIBILITY_EXPORT InputManager: public ComponentManager {
public:
    // Names of the devices by value.
    static const Corrade::Containers::StringView EnumValuesInputType[4];

    explicit InputManager(std::size_t capacity = 0);

    // Index into the names.
    Magnum::UnsignedByte& inputType(Id component) { return _inputType[slot(component)]; }

private:
    Field<Magnum::UnsignedByte> _inputType{*this};
};

}
