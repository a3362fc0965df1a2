#pragma once

#include <vector>

#include <Corrade/Containers/ArrayView.h>

namespace VantrelEngine {

template<class T> Corrade::Containers::ArrayView<const T> vectorView(const std::vector<T>& list) {
    return {list.data(), list.size()};
}
template<class T> Corrade::Containers::ArrayView<T> vectorView(std::vector<T>& list) {
    return {list.data(), list.size()};
}

} // namespace VantrelEngine
