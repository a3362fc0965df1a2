#pragma once

#include <Corrade/Containers/String.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

// Components whose behaviour is a script ("js"). What such a component is called in a document is the name of its type.
class CORRADE_VISIBILITY_EXPORT JavaScriptManager: public ComponentManager {
public:
    static constexpr Magnum::UnsignedByte NoType = 255;
    static constexpr Magnum::UnsignedShort UnknownType = 65535;

    explicit JavaScriptManager(std::size_t capacity = 0);

    // Registers a type; returns its index, the old one of a name that is registered already. Prints one line and returns
    // 65,535 for an empty name, and where there are 255 types already. Linear.
    Magnum::UnsignedShort registerType(Corrade::Containers::StringView name);
    std::size_t typesCount() const { return _types.size(); }
    Corrade::Containers::StringView typeName(std::size_t type) const { return _types[type]; }
    // 65,535 where no type has this name. Costs a binary search.
    Magnum::UnsignedShort typeIndex(Corrade::Containers::StringView name) const;

    // A component of a type below typesCount(). Otherwise like that of every manager, whose function gives one of no
    // type.
    using ComponentManager::addComponent;
    Id addComponent(Id object, std::size_t type);

    // 255 for none.
    Magnum::UnsignedByte componentType(Id component) const { return _componentType[slot(component)]; }
    void setComponentType(Id component, std::size_t type);

private:
    std::size_t lowerBound(Corrade::Containers::StringView name) const;

    Field<Magnum::UnsignedByte> _componentType{*this, NoType};
    Corrade::Containers::Array<Corrade::Containers::String> _types;
    // The types ordered by name.
    Corrade::Containers::Array<Magnum::UnsignedByte> _byName;
};

}
