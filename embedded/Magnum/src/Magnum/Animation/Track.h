#pragma once

#include <cstddef>
#include <type_traits>

#include "Corrade/Containers/StridedArrayView.h"
#include "Corrade/Utility/Assert.h"
#include "Magnum/Animation/Interpolation.h"
#include "Magnum/Math/Range.h"

namespace Magnum::Trade {

class AnimationTrackData;

}

namespace Magnum::Animation {

// Keys, in ascending order, and values of whatever type, in someone else's memory. K is the type of the keys, const
// when they cannot be changed.
template<class K> class TrackViewStorage {
public:
    typedef std::remove_const_t<K> KeyType;

    explicit TrackViewStorage() noexcept = default;

    Containers::StridedArrayView1D<K> keys() const { return _keys; }
    Containers::StridedArrayView1D<const void> values() const { return _values; }
    std::size_t size() const { return _keys.size(); }

    // From the first to the last key.
    Math::Range1D<KeyType> duration() const {
        return _keys.isEmpty() ? Math::Range1D<KeyType>{} : Math::Range1D<KeyType>{_keys.front(), _keys.back()};
    }

    Interpolation interpolation() const { return _interpolation; }
    Extrapolation before() const { return _before; }
    Extrapolation after() const { return _after; }

protected:
    template<class, class, class> friend class TrackView;
    friend Trade::AnimationTrackData;

    typedef void (*AnyInterpolator)();

    explicit TrackViewStorage(const Containers::StridedArrayView1D<K>& keys,
        const Containers::StridedArrayView1D<const void>& values, Interpolation interpolation,
        AnyInterpolator interpolator, Extrapolation before, Extrapolation after) noexcept:
        _keys{keys},
        _values{values}, _interpolator{interpolator}, _interpolation{interpolation}, _before{before}, _after{after} {}

    // The key that starts the segment of the given one; the hint is tried first. There have to be two keys or more.
    std::size_t findSegment(KeyType key, std::size_t hint) const {
        const std::size_t last = _keys.size() - 2;
        const auto contains = [&](std::size_t i) {
            return (i == 0 || _keys[i] <= key) && (i == last || key < _keys[i + 1]);
        };
        if(hint <= last && contains(hint)) return hint;
        if(hint < last && contains(hint + 1)) return hint + 1;
        std::size_t begin = 0, end = last;
        while(begin != end) {
            const std::size_t middle = (begin + end + 1) / 2;
            if(_keys[middle] <= key)
                begin = middle;
            else
                end = middle - 1;
        }
        return begin;
    }

private:
    Containers::StridedArrayView1D<K> _keys;
    Containers::StridedArrayView1D<const void> _values;
    AnyInterpolator _interpolator{};
    Interpolation _interpolation{};
    Extrapolation _before{}, _after{};
};

// The same with the type of the values, V, and that of what lies between them, R.
template<class K, class V, class R = std::remove_const_t<V>> class TrackView: public TrackViewStorage<K> {
public:
    using typename TrackViewStorage<K>::KeyType;
    typedef std::remove_const_t<V> ValueType;

    // Without keys; the value is a default-constructed one everywhere.
    explicit TrackView() noexcept = default;

    // Asserts that there are as many values as keys and that there is a function for the interpolation.
    explicit TrackView(const Containers::StridedArrayView1D<K>& keys, const Containers::StridedArrayView1D<V>& values,
        Interpolation interpolation, Extrapolation extrapolation = Extrapolation::Constant) noexcept:
        TrackView{keys, values, interpolation, extrapolation, extrapolation} {}
    explicit TrackView(const Containers::StridedArrayView1D<K>& keys, const Containers::StridedArrayView1D<V>& values,
        Interpolation interpolation, Extrapolation before, Extrapolation after) noexcept:
        TrackViewStorage<K>{keys, Containers::StridedArrayView1D<const void>{values}, interpolation,
            reinterpret_cast<typename TrackViewStorage<K>::AnyInterpolator>(interpolatorFor<ValueType>(interpolation)),
            before, after} {
        CORRADE_ASSERT(keys.size() == values.size(),
            "Animation::TrackView: expected key and value view to have the same size but got" << keys.size() << "and"
                                                                                              << values.size(), );
    }

    Containers::StridedArrayView1D<const ValueType> values() const {
        return Containers::arrayCast<const ValueType>(this->_values);
    }

    R at(KeyType key) const {
        std::size_t hint{};
        return at(key, hint);
    }
    // Constant in time when the key is near that of the call before, which the hint, zero at first, remembers.
    R at(KeyType key, std::size_t& hint) const;

private:
    friend Trade::AnimationTrackData;

    // Of values that are known to be of type V.
    explicit TrackView(const TrackViewStorage<K>& storage) noexcept: TrackViewStorage<K>{storage} {}
};

template<class K, class V, class R> R TrackView<K, V, R>::at(KeyType key, std::size_t& hint) const {
    const std::size_t size = this->size();
    if(!size) return R{};

    const auto interpolator = reinterpret_cast<Interpolator<ValueType, R>>(this->_interpolator);
    const Containers::StridedArrayView1D<K> keys = this->keys();
    const Containers::StridedArrayView1D<const ValueType> values = this->values();
    const bool isBefore = key < keys.front();
    // With more keys than one the last is outside already: there is no segment that starts there.
    const bool isOutside = isBefore || keys.back() < key || (size != 1 && key == keys.back());
    const Extrapolation extrapolation = isBefore ? this->_before : this->_after;

    hint = size == 1 ? 0 : this->findSegment(key, hint);
    if(isOutside && extrapolation == Extrapolation::DefaultConstructed) return R{};
    if(size == 1) return interpolator(values[0], values[0], 0.0f);
    Float t = Float(key - keys[hint]) / Float(keys[hint + 1] - keys[hint]);
    if(isOutside && extrapolation == Extrapolation::Constant) t = isBefore ? 0.0f : 1.0f;
    return interpolator(values[hint], values[hint + 1], t);
}

}
