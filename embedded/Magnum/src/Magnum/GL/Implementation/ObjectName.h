#pragma once

#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/Move.h"
#include "Magnum/Magnum.h"

namespace Magnum::GL::Implementation {

// The name of a GL object in the one C++ object that has to delete it. 0 is no object. Moving leaves 0 behind, move
// assignment swaps, so that the other side deletes what was here.
class ObjectName {
public:
    ObjectName() = default;
    explicit ObjectName(UnsignedInt id): _id{id} {}
    ObjectName(ObjectName&& other) noexcept: _id{other._id} { other._id = 0; }
    ObjectName& operator=(ObjectName&& other) noexcept {
        Utility::swap(_id, other._id);
        return *this;
    }

    /*implicit*/ operator UnsignedInt() const { return _id; }

private:
    UnsignedInt _id = 0;
};

// Names shown by debuggers. The type is the identifier of glObjectLabel(). Without KHR_debug the label stays empty.
void setObjectLabel(UnsignedInt type, UnsignedInt id, Containers::StringView label);
Containers::String objectLabel(UnsignedInt type, UnsignedInt id);

}
