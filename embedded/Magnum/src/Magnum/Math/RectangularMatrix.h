#pragma once
// Matrices as columns: storage, element access, comparison and the product with a vector.

#include <cstring>

#include "Magnum/Math/Tags.h"
#include "Magnum/Math/Vector.h"

namespace Magnum::Math {

namespace Implementation {

// A whole column at once. Left to itself the optimiser vectorises loops over such products across several vectors,
// which spends more time on transposing than on multiplying.
using FourFloats = float __attribute__((vector_size(16)));
inline FourFloats load(const Vector<4, float>& vector) {
    FourFloats result;
    std::memcpy(&result, vector.data(), sizeof(result));
    return result;
}
inline Vector<4, float> store(FourFloats vector) {
    Vector<4, float> result;
    std::memcpy(result.data(), &vector, sizeof(vector));
    return result;
}

}

template<std::size_t cols, std::size_t rows, class T> class RectangularMatrix {
public:
    using Type = T;
    static constexpr std::size_t Cols = cols;
    static constexpr std::size_t Rows = rows;

    // Zero
    constexpr RectangularMatrix() = default;
    constexpr explicit RectangularMatrix(ZeroInitT) {}
    // From all columns
    template<class... U, class = std::enable_if_t<sizeof...(U) + 1 == cols>>
    constexpr RectangularMatrix(const Vector<rows, T>& first, const U&... next): _columns{first, next...} {}
    template<class U>
    constexpr explicit RectangularMatrix(const RectangularMatrix<cols, rows, U>& other):
        RectangularMatrix{other, std::make_index_sequence<cols>{}} {}

    // All elements, column by column
    auto data() -> T (&)[cols * rows] { return reinterpret_cast<T(&)[cols * rows]>(_columns); }
    auto data() const -> const T (&)[cols * rows] { return reinterpret_cast<const T(&)[cols * rows]>(_columns); }

    constexpr Vector<rows, T>& operator[](std::size_t column) { return _columns[column]; }
    constexpr const Vector<rows, T>& operator[](std::size_t column) const { return _columns[column]; }
    constexpr Vector<cols, T> row(std::size_t row) const {
        return Implementation::generate<Vector<cols, T>>([&](std::size_t i) { return _columns[i][row]; });
    }
    constexpr Vector<(cols < rows ? cols : rows), T> diagonal() const {
        return Implementation::generate<Vector<(cols < rows ? cols : rows), T>>(
            [this](std::size_t i) { return _columns[i][i]; });
    }
    constexpr RectangularMatrix<rows, cols, T> transposed() const {
        return transposed(std::make_index_sequence<rows>{});
    }

    // Inlined in any case, or the optimiser would stop half way through the product of two matrices.
    [[gnu::always_inline]] Vector<rows, T> operator*(const Vector<cols, T>& vector) const {
        if constexpr(rows == 4 && std::is_same_v<T, float>) {
            Implementation::FourFloats result = Implementation::load(_columns[0]) * vector[0];
            for(std::size_t i = 1; i != cols; ++i) result += Implementation::load(_columns[i]) * vector[i];
            return Implementation::store(result);
        } else
            return Implementation::generate<Vector<rows, T>>([&](std::size_t row) {
                return Implementation::sum<cols>([&](std::size_t i) { return _columns[i][row] * vector[i]; });
            });
    }

    // With the tolerance of the type
    friend bool operator==(const RectangularMatrix& a, const RectangularMatrix& b) {
        for(std::size_t i = 0; i != cols; ++i)
            if(a[i] != b[i]) return false;
        return true;
    }
    friend bool operator!=(const RectangularMatrix& a, const RectangularMatrix& b) { return !(a == b); }

protected:
    template<std::size_t... i>
    constexpr explicit RectangularMatrix(T diagonal, std::index_sequence<i...>): _columns{unit(i, diagonal)...} {}

private:
    template<class U, std::size_t... i>
    constexpr explicit RectangularMatrix(const RectangularMatrix<cols, rows, U>& other, std::index_sequence<i...>):
        _columns{Vector<rows, T>{other[i]}...} {}

    static constexpr Vector<rows, T> unit(std::size_t at, T value) {
        return Implementation::generate<Vector<rows, T>>([&](std::size_t i) { return i == at ? value : T(0); });
    }
    template<std::size_t... i> constexpr RectangularMatrix<rows, cols, T> transposed(std::index_sequence<i...>) const {
        return {row(i)...};
    }

    Vector<rows, T> _columns[cols];
};

// Row by row, the way it is written on paper
template<std::size_t cols, std::size_t rows, class T>
Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const RectangularMatrix<cols, rows, T>& value) {
    using Corrade::Utility::Debug;
    debug << "Matrix(" << Debug::nospace;
    for(std::size_t row = 0; row != rows; ++row) {
        if(row) debug << Debug::nospace << ",\n      ";
        Implementation::print(debug, "", value.row(row).data(), cols, "");
    }
    return debug << Debug::nospace << ")";
}

}
