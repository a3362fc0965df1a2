#pragma once

#include <initializer_list>
#include <type_traits>

#include "Corrade/Containers/Array.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Animation/Track.h"
#include "Magnum/Math/Range.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::Trade {

enum class AnimationTrackType : UnsignedByte {
    Bool = 1,
    Float,
    UnsignedInt,
    Int,
    BitVector2,
    BitVector3,
    BitVector4,
    Vector2,
    Vector2ui,
    Vector2i,
    Vector3,
    Vector3ui,
    Vector3i,
    Vector4,
    Vector4ui,
    Vector4i,
    Complex,
    Quaternion,
    DualQuaternion,
    CubicHermite1D,
    CubicHermite2D,
    CubicHermite3D,
    CubicHermiteComplex,
    CubicHermiteQuaternion
};

enum class AnimationTrackTarget : UnsignedShort {
    Translation2D = 1,
    Translation3D,
    Rotation2D,
    Rotation3D,
    Scaling2D,
    Scaling3D
    // 32768 and on: custom targets.
};

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, AnimationTrackType value);
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, AnimationTrackTarget value);

namespace Implementation {

template<class> struct AnimationTypeFor;
template<AnimationTrackType type> using AnimationType = std::integral_constant<AnimationTrackType, type>;
template<> struct AnimationTypeFor<Float>: AnimationType<AnimationTrackType::Float> {};
template<> struct AnimationTypeFor<Vector2>: AnimationType<AnimationTrackType::Vector2> {};
template<> struct AnimationTypeFor<Vector3>: AnimationType<AnimationTrackType::Vector3> {};
template<> struct AnimationTypeFor<Vector4>: AnimationType<AnimationTrackType::Vector4> {};
template<> struct AnimationTypeFor<Quaternion>: AnimationType<AnimationTrackType::Quaternion> {};
template<> struct AnimationTypeFor<DualQuaternion>: AnimationType<AnimationTrackType::DualQuaternion> {};

}

// What one track animates and how. Does not own keys and values.
class CORRADE_VISIBILITY_EXPORT AnimationTrackData {
public:
    // Without keys.
    explicit AnimationTrackData() noexcept = default;

    // The types are known at run time: of the values, and of what lies between them, which is the same for all that are
    // supported. Asserts that there are as many values as keys and that there is a function for types and interpolation.
    explicit AnimationTrackData(AnimationTrackTarget targetName, UnsignedLong target, AnimationTrackType type,
        AnimationTrackType resultType, const Containers::StridedArrayView1D<const Float>& keys,
        const Containers::StridedArrayView1D<const void>& values, Animation::Interpolation interpolation,
        Animation::Extrapolation before, Animation::Extrapolation after) noexcept;
    explicit AnimationTrackData(AnimationTrackTarget targetName, UnsignedLong target, AnimationTrackType type,
        const Containers::StridedArrayView1D<const Float>& keys,
        const Containers::StridedArrayView1D<const void>& values, Animation::Interpolation interpolation,
        Animation::Extrapolation extrapolation = Animation::Extrapolation::Constant) noexcept:
        AnimationTrackData{targetName, target, type, type, keys, values, interpolation, extrapolation, extrapolation} {}

    template<class V, class = std::enable_if_t<!std::is_void<V>::value>>
    explicit AnimationTrackData(AnimationTrackTarget targetName, UnsignedLong target,
        const Containers::StridedArrayView1D<const Float>& keys, const Containers::StridedArrayView1D<V>& values,
        Animation::Interpolation interpolation,
        Animation::Extrapolation extrapolation = Animation::Extrapolation::Constant) noexcept:
        AnimationTrackData{targetName, target, Implementation::AnimationTypeFor<std::remove_const_t<V>>::value, keys,
            Containers::StridedArrayView1D<const void>{values}, interpolation, extrapolation} {}

    template<class V, class R>
    explicit AnimationTrackData(AnimationTrackTarget targetName, UnsignedLong target,
        const Animation::TrackView<const Float, const V, R>& track) noexcept:
        _type{Implementation::AnimationTypeFor<V>::value},
        _resultType{Implementation::AnimationTypeFor<R>::value}, _targetName{targetName}, _target{target}, _track{
                                                                                                               track} {}

    AnimationTrackTarget targetName() const { return _targetName; }
    // A number that means something to whoever made the data: what is animated.
    UnsignedLong target() const { return _target; }
    AnimationTrackType type() const { return _type; }
    AnimationTrackType resultType() const { return _resultType; }
    const Animation::TrackViewStorage<const Float>& track() const { return _track; }

private:
    friend AnimationData;

    template<class V, class R> Animation::TrackView<const Float, const V, R> typedTrack() const {
        return Animation::TrackView<const Float, const V, R>{_track};
    }

    AnimationTrackType _type{}, _resultType{};
    AnimationTrackTarget _targetName{};
    UnsignedLong _target{};
    Animation::TrackViewStorage<const Float> _track;
};

// Tracks, and the memory of their keys and values. Movable only. Functions that take the number of a track assert that
// it is there.
class CORRADE_VISIBILITY_EXPORT AnimationData {
public:
    // Lasts from the first to the last key of all tracks that have more than one.
    explicit AnimationData(Containers::Array<char>&& data, Containers::Array<AnimationTrackData>&& tracks) noexcept;
    explicit AnimationData(Containers::Array<char>&& data, std::initializer_list<AnimationTrackData> tracks) noexcept;
    explicit AnimationData(Containers::Array<char>&& data, Containers::Array<AnimationTrackData>&& tracks,
        const Range1D& duration) noexcept;
    explicit AnimationData(Containers::Array<char>&& data, std::initializer_list<AnimationTrackData> tracks,
        const Range1D& duration) noexcept;

    Containers::ArrayView<const char> data() const { return _data; }
    Range1D duration() const { return _duration; }
    UnsignedInt trackCount() const { return UnsignedInt(_tracks.size()); }

    AnimationTrackType trackType(UnsignedInt id) const { return at("trackType", id).type(); }
    AnimationTrackType trackResultType(UnsignedInt id) const { return at("trackResultType", id).resultType(); }
    AnimationTrackTarget trackTargetName(UnsignedInt id) const { return at("trackTargetName", id).targetName(); }
    UnsignedLong trackTarget(UnsignedInt id) const { return at("trackTarget", id).target(); }
    const Animation::TrackViewStorage<const Float>& track(UnsignedInt id) const { return at("track", id).track(); }
    // Asserts that the types are those of the track.
    template<class V, class R = V> Animation::TrackView<const Float, const V, R> track(UnsignedInt id) const {
        requireTypes(id, Implementation::AnimationTypeFor<V>::value, Implementation::AnimationTypeFor<R>::value);
        return at("track", id).typedTrack<V, R>();
    }

private:
    const AnimationTrackData& at(const char* function, UnsignedInt id) const;
    void requireTypes(UnsignedInt id, AnimationTrackType type, AnimationTrackType resultType) const;

    Containers::Array<char> _data;
    Containers::Array<AnimationTrackData> _tracks;
    Range1D _duration;
};

}
