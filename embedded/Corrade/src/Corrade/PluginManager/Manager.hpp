#pragma once

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/String.h"
#include "Corrade/PluginManager/Manager.h"

namespace Corrade::PluginManager {

template<class T>
Manager<T>::Manager(Containers::StringView pluginDirectory):
    AbstractManager{
        T::pluginInterface(), T::pluginSearchPaths(), T::pluginSuffix(), T::pluginMetadataSuffix(), pluginDirectory} {}

}
