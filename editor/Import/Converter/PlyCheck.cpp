#include "Import/Converter/PlyCheck.h"

#include <charconv>
#include <cstdint>
#include <string_view>

namespace VantrelImport {

namespace {

struct Property {
    // Bytes of a value, and of the number of values before it: 0 where there is always one.
    unsigned size = 0, countSize = 0;
};

struct Element {
    std::uint64_t count = 0;
    std::vector<Property> properties;
};

// Of a binary value; 0 for a name that is none.
unsigned sizeOf(std::string_view type) {
    if(type == "char" || type == "uchar" || type == "int8" || type == "uint8") return 1;
    if(type == "short" || type == "ushort" || type == "int16" || type == "uint16") return 2;
    if(type == "int" || type == "uint" || type == "int32" || type == "uint32") return 4;
    if(type == "float" || type == "float32") return 4;
    return type == "double" || type == "float64" ? 8 : 0;
}

// Takes the first word off a line; empty at its end.
std::string_view takeWord(std::string_view& line) {
    constexpr const char* Spaces = " \t\r\v\f";
    const std::size_t begin = line.find_first_not_of(Spaces);
    line.remove_prefix(begin == line.npos ? line.size() : begin);
    const std::string_view word = line.substr(0, line.find_first_of(Spaces));
    line.remove_prefix(word.size());
    return word;
}

bool toNumber(std::string_view word, std::uint64_t& number) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc{} && end == word.data() + word.size();
}

class PlyCheck {
public:
    explicit PlyCheck(std::string_view bytes): _rest{bytes} {}

    std::string problem() {
        if(std::string error = readHeader(); !error.empty()) return error;
        for(const Element& element: _elements)
            for(std::uint64_t i = 0; i != element.count; ++i)
                if(!(_isText ? skipLine(element) : skipBytes(element))) return "the file ends before its last element";
        return {};
    }

private:
    // Without its end. False where nothing is left.
    bool takeLine(std::string_view& line) {
        if(_rest.empty()) return false;
        const std::size_t end = _rest.find('\n');
        line = _rest.substr(0, end);
        _rest.remove_prefix(end == _rest.npos ? _rest.size() : end + 1);
        return true;
    }

    std::string readHeader() {
        for(std::string_view line; takeLine(line);) {
            const std::string_view word = takeWord(line);
            if(word == "end_header") return {};
            if(word == "format") readFormat(takeWord(line));
            if(word == "element" && !readElement(line)) return "an element of its header has no number";
            if(word == "property" && !readProperty(line)) return "a property of its header has no known type";
        }
        return "its header has no end";
    }

    void readFormat(std::string_view name) {
        _isText = name == "ascii";
        _isBigEndian = name == "binary_big_endian";
    }

    bool readElement(std::string_view line) {
        takeWord(line);
        Element element;
        if(!toNumber(takeWord(line), element.count)) return false;
        _elements.push_back(std::move(element));
        return true;
    }

    bool readProperty(std::string_view line) {
        Property property;
        std::string_view type = takeWord(line);
        if(type == "list") {
            property.countSize = sizeOf(takeWord(line));
            if(!property.countSize) return false;
            type = takeWord(line);
        }
        property.size = sizeOf(type);
        if(!property.size || _elements.empty()) return false;
        _elements.back().properties.push_back(property);
        return true;
    }

    // An element as text is a line; empty ones do not count.
    bool skipLine(const Element& element) {
        std::string_view line;
        do
            if(!takeLine(line)) return false;
        while(line.find_first_not_of(" \t\r") == line.npos);
        for(const Property& property: element.properties) {
            std::uint64_t count = 1;
            if(property.countSize && !toNumber(takeWord(line), count)) return false;
            for(; count != 0; --count)
                if(takeWord(line).empty()) return false;
        }
        return true;
    }

    bool skipBytes(const Element& element) {
        if(element.properties.empty()) return element.count <= _rest.size();
        for(const Property& property: element.properties) {
            std::uint64_t count = 1;
            if(property.countSize && !takeNumber(property.countSize, count)) return false;
            if(count > _rest.size() / property.size) return false;
            _rest.remove_prefix(std::size_t(count) * property.size);
        }
        return true;
    }

    bool takeNumber(unsigned size, std::uint64_t& number) {
        if(size > _rest.size()) return false;
        number = 0;
        for(unsigned i = 0; i != size; ++i)
            number = number << 8 | static_cast<unsigned char>(_rest[_isBigEndian ? i : size - 1 - i]);
        _rest.remove_prefix(size);
        return true;
    }

    std::string_view _rest;
    bool _isText = false, _isBigEndian = false;
    std::vector<Element> _elements;
};

} // namespace

std::string whyNotComplete(const std::vector<char>& ply) { return PlyCheck{{ply.data(), ply.size()}}.problem(); }

} // namespace VantrelImport
