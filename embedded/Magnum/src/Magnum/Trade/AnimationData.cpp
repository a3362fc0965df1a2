#include "Magnum/Trade/AnimationData.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/Implementation/EnumDebug.h"
#include "Magnum/Math/Vector4.h"

namespace Magnum::Trade {

namespace {

// Values of a type that is known at run time, as one that is known here.
struct Track {
    const Containers::StridedArrayView1D<const Float>& keys;
    const Containers::StridedArrayView1D<const void>& values;
    Animation::Interpolation interpolation;
    Animation::Extrapolation before, after;

    template<class V> Animation::TrackViewStorage<const Float> of() const {
        return Animation::TrackView<const Float, const V>{
            keys, Containers::arrayCast<const V>(values), interpolation, before, after};
    }

    Animation::TrackViewStorage<const Float> of(AnimationTrackType type) const {
        switch(type) {
        case AnimationTrackType::Float: return of<Float>();
        case AnimationTrackType::Vector2: return of<Vector2>();
        case AnimationTrackType::Vector3: return of<Vector3>();
        case AnimationTrackType::Vector4: return of<Vector4>();
        case AnimationTrackType::Quaternion: return of<Quaternion>();
        case AnimationTrackType::DualQuaternion: return of<DualQuaternion>();
        default: CORRADE_INTERNAL_ASSERT_UNREACHABLE();
        }
    }
};

bool isSupported(AnimationTrackType type) {
    return type == AnimationTrackType::Float || type == AnimationTrackType::Vector2 ||
        type == AnimationTrackType::Vector3 || type == AnimationTrackType::Vector4 ||
        type == AnimationTrackType::Quaternion || type == AnimationTrackType::DualQuaternion;
}

// Tracks of a single key do not count unless there are no others.
Range1D joinedDuration(Containers::ArrayView<const AnimationTrackData> tracks) {
    if(tracks.isEmpty()) return {};
    Range1D out = tracks[0].track().duration();
    for(const AnimationTrackData& track: tracks.exceptPrefix(1)) out = Math::join(out, track.track().duration());
    return out;
}

}

Debug& operator<<(Debug& debug, AnimationTrackType value) {
    static constexpr const char* Names[]{"Bool", "Float", "UnsignedInt", "Int", "BitVector2", "BitVector3",
        "BitVector4", "Vector2", "Vector2ui", "Vector2i", "Vector3", "Vector3ui", "Vector3i", "Vector4", "Vector4ui",
        "Vector4i", "Complex", "Quaternion", "DualQuaternion", "CubicHermite1D", "CubicHermite2D", "CubicHermite3D",
        "CubicHermiteComplex", "CubicHermiteQuaternion"};
    return Magnum::Implementation::printEnum(debug, "Trade::AnimationTrackType", Names, 1, value);
}

Debug& operator<<(Debug& debug, AnimationTrackTarget value) {
    static constexpr const char* Names[]{
        "Translation2D", "Translation3D", "Rotation2D", "Rotation3D", "Scaling2D", "Scaling3D"};
    if(UnsignedShort(value) >= 32768)
        return debug << "Trade::AnimationTrackTarget::Custom(" << Debug::nospace << UnsignedShort(value) - 32768
                     << Debug::nospace << ")";
    return Magnum::Implementation::printEnum(debug, "Trade::AnimationTrackTarget", Names, 1, value);
}

AnimationTrackData::AnimationTrackData(AnimationTrackTarget targetName, UnsignedLong target, AnimationTrackType type,
    AnimationTrackType resultType, const Containers::StridedArrayView1D<const Float>& keys,
    const Containers::StridedArrayView1D<const void>& values, Animation::Interpolation interpolation,
    Animation::Extrapolation before, Animation::Extrapolation after) noexcept:
    _type{type},
    _resultType{resultType}, _targetName{targetName}, _target{target} {
    CORRADE_ASSERT(keys.size() == values.size(),
        "Trade::AnimationTrackData: expected key and value view to have the same size but got" << keys.size() << "and"
                                                                                               << values.size(), );
    CORRADE_ASSERT(isSupported(type) && type == resultType,
        "Trade::AnimationTrackData: can't deduce interpolator function for" << type << Debug::nospace << ","
                                                                            << resultType << "and" << interpolation, );
    _track = Track{keys, values, interpolation, before, after}.of(type);
}

AnimationData::AnimationData(Containers::Array<char>&& data, Containers::Array<AnimationTrackData>&& tracks) noexcept:
    _data{Utility::move(data)}, _tracks{Utility::move(tracks)}, _duration{joinedDuration(_tracks)} {}

AnimationData::AnimationData(Containers::Array<char>&& data, std::initializer_list<AnimationTrackData> tracks) noexcept:
    AnimationData{Utility::move(data), Containers::Array<AnimationTrackData>{InPlaceInit, tracks}} {}

AnimationData::AnimationData(
    Containers::Array<char>&& data, Containers::Array<AnimationTrackData>&& tracks, const Range1D& duration) noexcept:
    _data{Utility::move(data)},
    _tracks{Utility::move(tracks)}, _duration{duration} {}

AnimationData::AnimationData(
    Containers::Array<char>&& data, std::initializer_list<AnimationTrackData> tracks, const Range1D& duration) noexcept:
    AnimationData{Utility::move(data), Containers::Array<AnimationTrackData>{InPlaceInit, tracks}, duration} {}

const AnimationTrackData& AnimationData::at(const char* function, UnsignedInt id) const {
    CORRADE_ASSERT(id < _tracks.size(),
        "Trade::AnimationData::" << Debug::nospace << function << Debug::nospace << "(): index" << id
                                 << "out of range for" << _tracks.size() << "tracks",
        _tracks[0]);
    return _tracks[id];
}

void AnimationData::requireTypes(UnsignedInt id, AnimationTrackType type, AnimationTrackType resultType) const {
    const AnimationTrackData& track = at("track", id);
    CORRADE_ASSERT(
        type == track.type(), "Trade::AnimationData::track(): improper type requested for" << track.type(), );
    CORRADE_ASSERT(resultType == track.resultType(),
        "Trade::AnimationData::track(): improper result type requested for" << track.resultType(), );
}

}
