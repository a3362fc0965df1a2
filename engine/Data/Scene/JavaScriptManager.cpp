#include <Vantrel/EngineData/JavaScriptManager.h>

#include <algorithm>

#include <Corrade/Containers/GrowableArray.h>

namespace VantrelEngine {

using namespace Corrade;

JavaScriptManager::JavaScriptManager(std::size_t capacity): ComponentManager{"js", capacity} {}

std::size_t JavaScriptManager::lowerBound(Containers::StringView name) const {
    return std::size_t(std::lower_bound(_byName.begin(), _byName.end(), name,
                           [this](std::size_t type, Containers::StringView name) { return _types[type] < name; }) -
        _byName.begin());
}

Magnum::UnsignedShort JavaScriptManager::registerType(Containers::StringView name) {
    const Magnum::UnsignedShort known = typeIndex(name);
    if(known != UnknownType) return known;
    if(name.isEmpty() || _types.size() == NoType) {
        Utility::Error{} << "JavaScriptManager::registerType(): cannot register type" << name << Utility::Debug::nospace
                         << (name.isEmpty() ? ", the name is empty" : ", there are 255 types already");
        return UnknownType;
    }
    arrayInsert(_byName, lowerBound(name), Magnum::UnsignedByte(_types.size()));
    arrayAppend(_types, Containers::String{name});
    return Magnum::UnsignedShort(_types.size() - 1);
}

Magnum::UnsignedShort JavaScriptManager::typeIndex(Containers::StringView name) const {
    const std::size_t found = lowerBound(name);
    return found != _byName.size() && _types[_byName[found]] == name ? _byName[found] : UnknownType;
}

Id JavaScriptManager::addComponent(Id object, std::size_t type) {
    const Id component = addComponent(object);
    if(component != NoComponent) setComponentType(component, type);
    return component;
}

void JavaScriptManager::setComponentType(Id component, std::size_t type) {
    CORRADE_ASSERT(type < _types.size(),
        "JavaScriptManager::setComponentType(): there is no type" << type << "among" << _types.size(), );
    _componentType[slot(component)] = Magnum::UnsignedByte(type);
}

}
