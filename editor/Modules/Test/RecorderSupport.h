#pragma once

#include <string>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

// What is said on the debug output while the function runs.
template<class Function> std::string heard(Function&& function) {
    Corrade::Containers::String text;
    {
        Corrade::Utility::Debug redirect{&text};
        function();
    }
    return {text.data(), text.size()};
}

} // namespace VantrelEngine
