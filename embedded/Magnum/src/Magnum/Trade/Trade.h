#pragma once

#include "Magnum/Types.h"

// Forward declarations of everything in Trade.

namespace Magnum::Trade {

enum class DataFlag : UnsignedByte;

enum class MeshAttribute : UnsignedShort;
class MeshIndexData;
class MeshAttributeData;
class MeshData;

enum class AnimationTrackType : UnsignedByte;
enum class AnimationTrackTarget : UnsignedShort;
class AnimationTrackData;
class AnimationData;

}
