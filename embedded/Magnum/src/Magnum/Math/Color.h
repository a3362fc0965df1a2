#pragma once
// Colours, either of floating-point channels (linear, 1 = full) or of integer ones (the largest number = full).

#include "Magnum/Math/Packing.h"
#include "Magnum/Math/Vector4.h"

namespace Magnum::Math {

// Hue in the range [0, 360) degrees, saturation and value in the range [0, 1]
template<class T> struct ColorHsv {
    Deg<T> hue;
    T saturation, value;
};

namespace Implementation {

template<class T> constexpr T fullChannel() {
    if constexpr(std::is_integral_v<T>)
        return std::numeric_limits<T>::max();
    else
        return T(1);
}

// Transfer functions of IEC 61966-2-1
template<class T> T fromSrgb(T value) {
    return value <= T(0.04045) ? value / T(12.92) : std::pow((value + T(0.055)) / T(1.055), T(2.4));
}
template<class T> T toSrgb(T value) {
    return value <= T(0.0031308) ? value * T(12.92) : T(1.055) * std::pow(value, T(1) / T(2.4)) - T(0.055);
}

template<class T> Vector3<T> fromHsv(const ColorHsv<T>& hsv) {
    // The hue circle in sixths: a channel is full for two of them around its own hue and fades over one on each side.
    T hue = std::fmod(T(hsv.hue) / T(60), T(6));
    if(hue < T(0)) hue += T(6);
    const auto channel = [&](T offset) {
        const T k = std::fmod(offset + hue, T(6));
        return hsv.value * (T(1) - hsv.saturation * clamp(Math::min(k, T(4) - k), T(0), T(1)));
    };
    return {channel(T(5)), channel(T(3)), channel(T(1))};
}
template<class T> ColorHsv<T> toHsv(const Vector<3, T>& rgb) {
    const T max = rgb.max(), range = max - rgb.min();
    T hue{};
    if(range == T(0))
        hue = T(0);
    else if(max == rgb[0])
        hue = (rgb[1] - rgb[2]) / range + (rgb[1] < rgb[2] ? T(6) : T(0));
    else if(max == rgb[1])
        hue = (rgb[2] - rgb[0]) / range + T(2);
    else
        hue = (rgb[0] - rgb[1]) / range + T(4);
    return {Deg<T>{T(60) * hue}, max == T(0) ? T(0) : range / max, max};
}

constexpr std::uint8_t byteOf(std::uint32_t value, int position) { return std::uint8_t(value >> (8 * position)); }

}

template<class T> class Color3: public Implementation::NamedVector<Color3<T>, Vector3<T>> {
    using Base = Implementation::NamedVector<Color3, Vector3<T>>;
    static constexpr T Full = Implementation::fullChannel<T>();

public:
    // The named channel changes from its place in the full colour.
    static constexpr Color3 red(T red = Full) { return {red, T(0), T(0)}; }
    static constexpr Color3 green(T green = Full) { return {T(0), green, T(0)}; }
    static constexpr Color3 blue(T blue = Full) { return {T(0), T(0), blue}; }
    static constexpr Color3 cyan(T red = T(0)) { return {red, Full, Full}; }
    static constexpr Color3 magenta(T green = T(0)) { return {Full, green, Full}; }
    static constexpr Color3 yellow(T blue = T(0)) { return {Full, Full, blue}; }

    // The conversions are for floating-point colours.
    static Color3 fromHsv(const ColorHsv<T>& hsv) { return Implementation::fromHsv(hsv); }
    static Color3 fromSrgb(const Vector3<T>& srgb) {
        return Implementation::each([](T v) { return Implementation::fromSrgb(v); }, srgb);
    }
    // 0xrrggbb
    static Color3 fromSrgbInt(std::uint32_t srgb) {
        using Implementation::byteOf;
        return fromSrgb(unpack<Vector3<T>>(Vector3<std::uint8_t>{byteOf(srgb, 2), byteOf(srgb, 1), byteOf(srgb, 0)}));
    }

    constexpr Color3() = default;
    constexpr explicit Color3(T value): Base(value) {}
    constexpr Color3(T red, T green, T blue): Base(red, green, blue) {}
    constexpr Color3(const Vector<3, T>& other): Base(other) {}
    template<class U> constexpr explicit Color3(const Vector<3, U>& other): Base(other) {}

    constexpr T& r() { return (*this)[0]; }
    constexpr T& g() { return (*this)[1]; }
    constexpr T& b() { return (*this)[2]; }
    constexpr T r() const { return (*this)[0]; }
    constexpr T g() const { return (*this)[1]; }
    constexpr T b() const { return (*this)[2]; }

    ColorHsv<T> toHsv() const { return Implementation::toHsv<T>(*this); }
    Vector3<T> toSrgb() const {
        return Implementation::each([](T v) { return Implementation::toSrgb(v); }, *this);
    }
    std::uint32_t toSrgbInt() const {
        const auto srgb = pack<Vector3<std::uint8_t>>(toSrgb());
        return std::uint32_t(srgb[0]) << 16 | std::uint32_t(srgb[1]) << 8 | srgb[2];
    }
};

template<class T> class Color4: public Implementation::NamedVector<Color4<T>, Vector4<T>> {
    using Base = Implementation::NamedVector<Color4, Vector4<T>>;
    static constexpr T Full = Implementation::fullChannel<T>();

public:
    static constexpr Color4 red(T red = Full, T alpha = Full) { return {Color3<T>::red(red), alpha}; }
    static constexpr Color4 green(T green = Full, T alpha = Full) { return {Color3<T>::green(green), alpha}; }
    static constexpr Color4 blue(T blue = Full, T alpha = Full) { return {Color3<T>::blue(blue), alpha}; }
    static constexpr Color4 cyan(T red = T(0), T alpha = Full) { return {Color3<T>::cyan(red), alpha}; }
    static constexpr Color4 magenta(T green = T(0), T alpha = Full) { return {Color3<T>::magenta(green), alpha}; }
    static constexpr Color4 yellow(T blue = T(0), T alpha = Full) { return {Color3<T>::yellow(blue), alpha}; }

    // The alpha channel is linear everywhere.
    static Color4 fromHsv(const ColorHsv<T>& hsv, T alpha = Full) { return {Color3<T>::fromHsv(hsv), alpha}; }
    static Color4 fromSrgb(const Vector3<T>& srgb, T alpha = Full) { return {Color3<T>::fromSrgb(srgb), alpha}; }
    static Color4 fromSrgbAlpha(const Vector4<T>& srgbAlpha) { return fromSrgb(srgbAlpha.xyz(), srgbAlpha.w()); }
    // 0xrrggbb, 0xrrggbbaa
    static Color4 fromSrgbInt(std::uint32_t srgb, T alpha = Full) { return {Color3<T>::fromSrgbInt(srgb), alpha}; }
    static Color4 fromSrgbAlphaInt(std::uint32_t srgbAlpha) {
        return fromSrgbInt(srgbAlpha >> 8, unpack<T>(Implementation::byteOf(srgbAlpha, 0)));
    }

    // All channels zero
    constexpr Color4() = default;
    constexpr explicit Color4(T rgb, T alpha = Full): Base(rgb, rgb, rgb, alpha) {}
    constexpr Color4(T red, T green, T blue, T alpha = Full): Base(red, green, blue, alpha) {}
    constexpr Color4(const Vector3<T>& rgb, T alpha = Full): Base(rgb, alpha) {}
    constexpr Color4(const Vector<4, T>& other): Base(other) {}
    template<class U> constexpr explicit Color4(const Vector<4, U>& other): Base(other) {}

    constexpr T& r() { return (*this)[0]; }
    constexpr T& g() { return (*this)[1]; }
    constexpr T& b() { return (*this)[2]; }
    constexpr T& a() { return (*this)[3]; }
    constexpr T r() const { return (*this)[0]; }
    constexpr T g() const { return (*this)[1]; }
    constexpr T b() const { return (*this)[2]; }
    constexpr T a() const { return (*this)[3]; }

    Color3<T>& xyz() { return reinterpret_cast<Color3<T>&>((*this)[0]); }
    constexpr Color3<T> xyz() const { return {r(), g(), b()}; }
    Color3<T>& rgb() { return xyz(); }
    constexpr Color3<T> rgb() const { return xyz(); }

    ColorHsv<T> toHsv() const { return rgb().toHsv(); }
    Vector4<T> toSrgbAlpha() const { return {rgb().toSrgb(), a()}; }
    std::uint32_t toSrgbAlphaInt() const { return rgb().toSrgbInt() << 8 | pack<std::uint8_t>(a()); }
};

// "#rrggbb", "#rrggbbaa"
template<std::size_t size>
Corrade::Utility::Debug& printBytes(Corrade::Utility::Debug& debug, const Vector<size, std::uint8_t>& value) {
    constexpr char digits[] = "0123456789abcdef";
    char text[1 + size * 2 + 1]{'#'};
    for(std::size_t i = 0; i != size; ++i) {
        text[1 + i * 2] = digits[value[i] >> 4];
        text[2 + i * 2] = digits[value[i] & 15];
    }
    return debug << static_cast<const char*>(text);
}
inline Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const Color3<std::uint8_t>& value) {
    return printBytes(debug, value);
}
inline Corrade::Utility::Debug& operator<<(Corrade::Utility::Debug& debug, const Color4<std::uint8_t>& value) {
    return printBytes(debug, value);
}

namespace Implementation {

// The literal as it was written: "0x" and exactly this many digits, so that a forgotten one is noticed.
template<std::size_t digits, char... characters> constexpr std::uint32_t hexadecimal() {
    constexpr char text[]{characters...};
    static_assert(sizeof...(characters) == digits + 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X'),
        "a colour is written as 0xrrggbb or, with alpha, as 0xrrggbbaa");
    std::uint32_t value = 0;
    for(std::size_t i = 2; i != sizeof(text); ++i) {
        const char c = text[i];
        value = value << 4 | std::uint32_t(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
    }
    return value;
}

}

namespace Literals {
inline namespace ColorLiterals {

template<char... characters> constexpr Color3<std::uint8_t> operator""_rgb() {
    constexpr std::uint32_t v = Implementation::hexadecimal<6, characters...>();
    return {Implementation::byteOf(v, 2), Implementation::byteOf(v, 1), Implementation::byteOf(v, 0)};
}
template<char... characters> constexpr Color4<std::uint8_t> operator""_rgba() {
    constexpr std::uint32_t v = Implementation::hexadecimal<8, characters...>();
    return {Implementation::byteOf(v, 3), Implementation::byteOf(v, 2), Implementation::byteOf(v, 1),
        Implementation::byteOf(v, 0)};
}
// Divided by 255
template<char... characters> constexpr Color3<float> operator""_rgbf() {
    return Color3<float>(operator""_rgb<characters...>()) / 255.0f;
}
template<char... characters> constexpr Color4<float> operator""_rgbaf() {
    return Color4<float>(operator""_rgba<characters...>()) / 255.0f;
}
// Converted to linear
template<char... characters> Color3<float> operator""_srgbf() {
    return Color3<float>::fromSrgbInt(Implementation::hexadecimal<6, characters...>());
}

}
}

}
