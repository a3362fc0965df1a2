#pragma once

#include <cstddef>

#include <Magnum/Magnum.h>

namespace VantrelEngine {

// Names an object of a scene graph, or a component of one manager, for as long as it lives.
using Id = Magnum::UnsignedShort;

// The root of every scene graph: always there, never a user's object. Where an id means "not there yet", it is this one.
constexpr Id RootObject = 0;

// What no object and no component is called. An id image cleared to ones reads as this.
constexpr Id NoObject = 65535;
constexpr Id NoComponent = 65535;

// Objects of a scene besides the root.
constexpr std::size_t MaxObjects = 65534;
// Components of one manager.
constexpr std::size_t MaxComponents = 65535;

}
