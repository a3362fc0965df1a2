#include "Style/IconFont.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr int Ascent = 900, Descent = -124;

// Everything in such a file is big-endian.
class Bytes {
public:
    void u8(unsigned value) { _data.push_back(static_cast<unsigned char>(value & 0xff)); }
    void u16(unsigned value) { u8(value >> 8), u8(value); }
    void u32(unsigned value) { u16(value >> 16), u16(value); }
    void i16(int value) { u16(unsigned(value) & 0xffff); }
    void append(const Bytes& other) { _data.insert(_data.end(), other._data.begin(), other._data.end()); }
    void padTo(std::size_t alignment) {
        while(_data.size() % alignment) u8(0);
    }
    std::size_t size() const { return _data.size(); }
    std::vector<unsigned char>&& take() { return std::move(_data); }
    void set32(std::size_t at, unsigned value) {
        for(std::size_t i = 0; i != 4; ++i) _data[at + i] = static_cast<unsigned char>(value >> (24 - 8 * i));
    }
    unsigned checksum() const {
        unsigned sum = 0;
        for(std::size_t i = 0; i != _data.size(); ++i) sum += unsigned(_data[i]) << (24 - 8 * (i % 4));
        return sum;
    }

private:
    std::vector<unsigned char> _data;
};

struct Point {
    int x, y;
};

Point rounded(const Vector2& position) { return {int(std::lround(position.x())), int(std::lround(position.y()))}; }

struct Box {
    Point min{IconEm, IconEm}, max{-IconEm, -IconEm};
};

Box boundsOf(const IconShape& shape) {
    Box box;
    for(const IconOutline& outline: shape.outlines)
        for(const Vector2& position: outline) {
            const Point point = rounded(position);
            box.min = {std::min(box.min.x, point.x), std::min(box.min.y, point.y)};
            box.max = {std::max(box.max.x, point.x), std::max(box.max.y, point.y)};
        }
    return box;
}

// Points one after the other, each as its difference to the one before; all of them are on the outline.
Bytes glyph(const IconShape& shape) {
    Bytes bytes;
    const Box box = boundsOf(shape);
    bytes.i16(int(shape.outlines.size()));
    bytes.i16(box.min.x), bytes.i16(box.min.y), bytes.i16(box.max.x), bytes.i16(box.max.y);
    std::vector<Point> points;
    for(const IconOutline& outline: shape.outlines) {
        for(const Vector2& position: outline) points.push_back(rounded(position));
        bytes.u16(unsigned(points.size() - 1));
    }
    bytes.u16(0);
    for(std::size_t i = 0; i != points.size(); ++i) bytes.u8(1);
    for(std::size_t i = 0; i != points.size(); ++i) bytes.i16(points[i].x - (i ? points[i - 1].x : 0));
    for(std::size_t i = 0; i != points.size(); ++i) bytes.i16(points[i].y - (i ? points[i - 1].y : 0));
    bytes.padTo(4);
    return bytes;
}

// The glyph after the empty one for each code point, as segments of one each.
Bytes characterMap(const std::vector<IconShape>& shapes) {
    Bytes bytes;
    const unsigned count = unsigned(shapes.size()) + 1;
    bytes.u16(0), bytes.u16(1);
    bytes.u16(3), bytes.u16(1), bytes.u32(12);
    bytes.u16(4), bytes.u16(16 + 8 * count), bytes.u16(0);
    // The greatest power of two that is not above the count, for whoever searches by halves.
    unsigned power = 1, exponent = 0;
    for(; power * 2 <= count; power *= 2) ++exponent;
    bytes.u16(2 * count), bytes.u16(2 * power), bytes.u16(exponent), bytes.u16(2 * (count - power));
    for(const IconShape& shape: shapes) bytes.u16(unsigned(shape.codePoint));
    bytes.u16(0xffff), bytes.u16(0);
    for(const IconShape& shape: shapes) bytes.u16(unsigned(shape.codePoint));
    bytes.u16(0xffff);
    for(std::size_t i = 0; i != shapes.size(); ++i) bytes.u16(unsigned(i + 1) - unsigned(shapes[i].codePoint));
    bytes.u16(1);
    for(unsigned i = 0; i != count; ++i) bytes.u16(0);
    return bytes;
}

Bytes header() {
    Bytes bytes;
    bytes.u32(0x00010000), bytes.u32(0x00010000), bytes.u32(0), bytes.u32(0x5f0f3cf5);
    bytes.u16(0), bytes.u16(IconEm);
    for(int i = 0; i != 4; ++i) bytes.u32(0);
    bytes.i16(0), bytes.i16(Descent), bytes.i16(IconEm), bytes.i16(Ascent);
    bytes.u16(0), bytes.u16(8), bytes.i16(2), bytes.i16(1), bytes.i16(0);
    return bytes;
}

Bytes horizontalHeader(unsigned glyphCount) {
    Bytes bytes;
    bytes.u32(0x00010000);
    bytes.i16(Ascent), bytes.i16(Descent), bytes.i16(0), bytes.u16(IconEm);
    for(int i = 0; i != 10; ++i) bytes.u16(0);
    bytes.i16(0);
    bytes.u16(glyphCount);
    return bytes;
}

Bytes maximumProfile(unsigned glyphCount) {
    Bytes bytes;
    bytes.u32(0x00005000), bytes.u16(glyphCount);
    return bytes;
}

} // namespace

std::vector<unsigned char> makeIconFont(const std::vector<IconShape>& shapes) {
    const unsigned glyphCount = unsigned(shapes.size()) + 1;
    Bytes glyphs, places, metrics;
    // Glyph 0 stands for what the font does not have; it is empty.
    places.u32(0), metrics.u16(IconEm), metrics.i16(0);
    for(const IconShape& shape: shapes) {
        places.u32(unsigned(glyphs.size()));
        glyphs.append(glyph(shape));
        metrics.u16(IconEm), metrics.i16(boundsOf(shape).min.x);
    }
    places.u32(unsigned(glyphs.size()));

    // In the order of their names.
    std::vector<std::pair<std::string, Bytes>> tables;
    tables.emplace_back("cmap", characterMap(shapes));
    tables.emplace_back("glyf", std::move(glyphs));
    tables.emplace_back("head", header());
    tables.emplace_back("hhea", horizontalHeader(glyphCount));
    tables.emplace_back("hmtx", std::move(metrics));
    tables.emplace_back("loca", std::move(places));
    tables.emplace_back("maxp", maximumProfile(glyphCount));

    Bytes font, contents;
    font.u32(0x00010000);
    font.u16(unsigned(tables.size())), font.u16(64), font.u16(2), font.u16(unsigned(tables.size()) * 16 - 64);
    const std::size_t directory = 12 + 16 * tables.size();
    std::size_t adjustment = 0;
    for(auto& table: tables) {
        if(table.first == "head") adjustment = directory + contents.size() + 8;
        for(const char character: table.first) font.u8(static_cast<unsigned char>(character));
        font.u32(table.second.checksum()), font.u32(unsigned(directory + contents.size()));
        font.u32(unsigned(table.second.size()));
        table.second.padTo(4);
        contents.append(table.second);
    }
    font.append(contents);
    // With it the words of every font add up to the same.
    font.set32(adjustment, 0xb1b0afba - font.checksum());
    return font.take();
}

} // namespace VantrelEngine
