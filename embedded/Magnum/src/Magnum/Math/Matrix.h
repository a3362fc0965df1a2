#pragma once
// Square matrices

#include "Magnum/Math/RectangularMatrix.h"
#include "Magnum/Math/Vector3.h"

namespace Magnum::Math {

template<std::size_t size, class T> class Matrix: public RectangularMatrix<size, size, T> {
    using Base = RectangularMatrix<size, size, T>;

public:
    static constexpr std::size_t Size = size;

    // Identity
    constexpr Matrix(): Matrix{IdentityInit} {}
    constexpr explicit Matrix(IdentityInitT, T value = T(1)): Base{value, std::make_index_sequence<size>{}} {}
    constexpr explicit Matrix(ZeroInitT): Base{ZeroInit} {}
    // From all columns
    template<class... U, class = std::enable_if_t<sizeof...(U) + 1 == size>>
    constexpr Matrix(const Vector<size, T>& first, const U&... next): Base{first, next...} {}
    constexpr Matrix(const RectangularMatrix<size, size, T>& other): Base(other) {}
    template<class U> constexpr explicit Matrix(const RectangularMatrix<size, size, U>& other): Base(other) {}

    // Columns normalized and perpendicular to each other
    bool isOrthogonal() const {
        for(std::size_t i = 0; i != size; ++i) {
            if(!(*this)[i].isNormalized()) return false;
            for(std::size_t j = 0; j != i; ++j)
                if(!(std::abs(dot((*this)[i], (*this)[j])) <= TypeTraits<T>::epsilon())) return false;
        }
        return true;
    }

    T trace() const { return this->diagonal().sum(); }
    Matrix transposed() const { return Base::transposed(); }

    T determinant() const {
        if constexpr(size == 1)
            return (*this)[0][0];
        else {
            T result{};
            for(std::size_t i = 0; i != size; ++i) result += (*this)[i][0] * cofactor(i, 0);
            return result;
        }
    }
    // Infinities and NaNs for a matrix without inverse. By cofactors: meant for sizes up to four.
    Matrix inverted() const {
        Matrix result;
        for(std::size_t i = 0; i != size; ++i)
            for(std::size_t j = 0; j != size; ++j) result[j][i] = cofactor(i, j);
        // The first row times its cofactors
        const T determinant = dot(this->row(0), result[0]);
        for(std::size_t i = 0; i != size; ++i) result[i] /= determinant;
        return result;
    }

    using Base::operator*;

private:
    // Determinant of what is left without the column and the row, with the sign of the place
    T cofactor(std::size_t column, std::size_t row) const {
        if constexpr(size == 3) {
            // Indices taken cyclically carry the sign themselves.
            const auto &a = (*this)[(column + 1) % 3], &b = (*this)[(column + 2) % 3];
            const std::size_t i = (row + 1) % 3, j = (row + 2) % 3;
            return a[i] * b[j] - a[j] * b[i];
        } else {
            Matrix<size - 1, T> minor;
            for(std::size_t i = 0; i != size - 1; ++i)
                for(std::size_t j = 0; j != size - 1; ++j) minor[i][j] = (*this)[i + (i >= column)][j + (j >= row)];
            const T determinant = minor.determinant();
            return (column + row) % 2 ? -determinant : determinant;
        }
    }
};

namespace Implementation {

template<std::size_t size, class T> Matrix<size, T> matrixBase(const Matrix<size, T>&);
template<class M> using MatrixOf = decltype(matrixBase(std::declval<const M&>()));

template<class M, std::size_t... i> constexpr M multiply(const M& a, const MatrixOf<M>& b, std::index_sequence<i...>) {
    return M{(a * b[i])...};
}
template<class M, class T, std::size_t... i> constexpr M scale(const M& a, T number, std::index_sequence<i...>) {
    return M{a[i] * number...};
}

}

// The left matrix is applied last.
template<class M> M operator*(const M& a, const Implementation::MatrixOf<M>& b) {
    return Implementation::multiply(a, b, std::make_index_sequence<M::Size>{});
}
template<class M> M operator*(const M& a, typename Implementation::MatrixOf<M>::Type number) {
    return Implementation::scale(a, number, std::make_index_sequence<M::Size>{});
}
template<class M> M operator*(typename Implementation::MatrixOf<M>::Type number, const M& a) { return a * number; }

}
