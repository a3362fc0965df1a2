#include "Corrade/Utility/Format.h"

#include "Corrade/Containers/String.h"
#include "Corrade/Utility/Assert.h"

#include <charconv>
#include <string>

namespace Corrade::Utility::Implementation {

namespace {

typedef FormatArgument::Kind Kind;

/* Most results fit here and are formatted only once. */
constexpr std::size_t StackBufferSize = 2048;

/* Digits of the largest floating-point value before the decimal point, sign and exponent included. */
constexpr std::size_t LongestWholePart = 5000;

/* Counts everything, keeps what fits. */
struct Sink {
    char* data;
    std::size_t capacity;
    std::size_t size;

    void append(const char* const text, const std::size_t count) {
        if(count && size + count <= capacity) std::memcpy(data + size, text, count);
        size += count;
    }
    void fill(const char character, const std::size_t count) {
        if(size + count <= capacity) std::memset(data + size, character, count);
        size += count;
    }
};

struct Placeholder {
    int precision = -1;
    char type = '\0';
};

bool isDigit(const char character) { return character >= '0' && character <= '9'; }

bool isIntegralType(const char type) { return type == 'o' || type == 'd' || type == 'x' || type == 'X'; }

bool isFloatingPointType(const char type) {
    return type == 'g' || type == 'G' || type == 'e' || type == 'E' || type == 'f' || type == 'F';
}

void uppercase(char* const begin, char* const end) {
    for(char* i = begin; i != end; ++i)
        if(*i >= 'a' && *i <= 'z') *i = char(*i - 'a' + 'A');
}

void assertNotCharacter(const Placeholder& placeholder, const char* const kind) {
    CORRADE_ASSERT(
        placeholder.type != 'c', "Utility::format(): character type used for" << kind << Debug::nospace << " value", );
}

/* What the value is if it can't be a character. */
void appendInteger(
    Sink& sink, const FormatArgument& argument, const Placeholder& placeholder, const char* const notCharacter) {
    if(notCharacter) assertNotCharacter(placeholder, notCharacter);
    CORRADE_ASSERT(
        !isFloatingPointType(placeholder.type), "Utility::format(): floating-point type used for an integral value", );
    if(placeholder.type == 'c') {
        const char character = char(argument.integer);
        return sink.append(&character, 1);
    }

    unsigned long long value = argument.integer;
    int base = 10;
    if(placeholder.type == 'o')
        base = 8;
    else if(placeholder.type == 'x' || placeholder.type == 'X')
        base = 16;
    else {
        const bool isNegative = (argument.kind == Kind::Int && int(value) < 0) ||
            (argument.kind == Kind::Long && static_cast<long long>(value) < 0);
        if(isNegative) {
            value = argument.kind == Kind::Int ? 0u - static_cast<unsigned int>(value) : 0ull - value;
            sink.append("-", 1);
        }
    }

    char digits[24];
    char* const end = std::to_chars(digits, digits + sizeof(digits), value, base).ptr;
    if(placeholder.type == 'X') uppercase(digits, end);
    const std::size_t count = value || placeholder.precision ? std::size_t(end - digits) : 0;
    if(placeholder.precision > int(count)) sink.fill('0', std::size_t(placeholder.precision) - count);
    sink.append(digits, count);
}

std::chars_format charsFormat(const char type) {
    if(type == 'e' || type == 'E') return std::chars_format::scientific;
    if(type == 'f' || type == 'F') return std::chars_format::fixed;
    return std::chars_format::general;
}

/* Returns null if it doesn't fit. Independent of the C locale, which a host may have changed. */
template<class T>
char* printFloat(char* const begin, char* const end, const T value, const char type, const int precision) {
    const std::to_chars_result result = std::to_chars(begin, end, value, charsFormat(type), precision);
    if(result.ec != std::errc{}) return nullptr;
    if(type == 'G' || type == 'E' || type == 'F') uppercase(begin, result.ptr);
    return result.ptr;
}

template<class T>
void appendFloat(Sink& sink, const T value, const Placeholder& placeholder, const int defaultPrecision) {
    assertNotCharacter(placeholder, "a floating-point");
    CORRADE_ASSERT(
        !isIntegralType(placeholder.type), "Utility::format(): integral type used for a floating-point value", );
    const int precision = placeholder.precision < 0 ? defaultPrecision : placeholder.precision;

    char buffer[64];
    if(const char* const end = printFloat(buffer, buffer + sizeof(buffer), value, placeholder.type, precision))
        return sink.append(buffer, std::size_t(end - buffer));

    std::string large(LongestWholePart + std::size_t(precision), '\0');
    const char* const end = printFloat(&large[0], &large[0] + large.size(), value, placeholder.type, precision);
    CORRADE_INTERNAL_ASSERT(end);
    sink.append(large.data(), std::size_t(end - large.data()));
}

void appendString(Sink& sink, const FormatArgument& argument, const Placeholder& placeholder) {
    CORRADE_ASSERT(!placeholder.type, "Utility::format(): type specifier can't be used for a string value", );
    const std::size_t size = argument.string.size;
    sink.append(argument.string.data,
        placeholder.precision < 0 || std::size_t(placeholder.precision) > size ? size
                                                                               : std::size_t(placeholder.precision));
}

void appendArgument(Sink& sink, const FormatArgument& argument, const Placeholder& placeholder) {
    switch(argument.kind) {
    case Kind::Bool: return appendInteger(sink, argument, placeholder, "a boolean");
    case Kind::Int:
    case Kind::UnsignedInt: return appendInteger(sink, argument, placeholder, nullptr);
    case Kind::Long:
    case Kind::UnsignedLong: return appendInteger(sink, argument, placeholder, "a 64-bit");
    case Kind::Float: return appendFloat(sink, float(argument.floating), placeholder, 6);
    case Kind::Double: return appendFloat(sink, argument.floating, placeholder, 15);
    case Kind::LongDouble: return appendFloat(sink, *argument.longFloating, placeholder, 18);
    case Kind::String: return appendString(sink, argument, placeholder);
    }
}

void assertNotAtEnd(const char* const position) {
    CORRADE_ASSERT(*position, "Utility::format(): unexpected end of format string", );
}

const char* parseNumber(const char* position, int& number) {
    for(number = 0; isDigit(*position); ++position) number = number * 10 + (*position - '0');
    return position;
}

/* What follows the colon, up to the closing brace exclusive. */
const char* parseSpecifier(const char* position, Placeholder& placeholder) {
    if(*position == '.' && position[1]) {
        ++position;
        CORRADE_ASSERT(isDigit(*position),
            "Utility::format(): invalid character in precision specifier:" << Containers::StringView(position, 1),
            position);
        position = parseNumber(position, placeholder.precision);
    }
    assertNotAtEnd(position);
    if(*position == '}') return position;
    CORRADE_ASSERT(*position == 'c' || isIntegralType(*position) || isFloatingPointType(*position),
        "Utility::format(): invalid type specifier:" << Containers::StringView(position, 1), position);
    placeholder.type = *position;
    return position + 1;
}

/* From after the opening to after the closing brace. */
const char* parsePlaceholder(const char* position, int& index, Placeholder& placeholder) {
    if(isDigit(*position)) position = parseNumber(position, index);
    if(*position == ':') position = parseSpecifier(position + 1, placeholder);
    assertNotAtEnd(position);
    CORRADE_ASSERT(*position == '}',
        "Utility::format(): unknown placeholder content:" << Containers::StringView(position, 1), position);
    return position + 1;
}

void formatTo(Sink& sink, const char* format, const std::initializer_list<FormatArgument> arguments) {
    int next = 0;
    while(*format) {
        const std::size_t literalSize = std::strcspn(format, "{}");
        sink.append(format, literalSize);
        format += literalSize;
        if(!*format) return;

        if(format[0] == format[1]) {
            sink.append(format, 1);
            format += 2;
            continue;
        }
        CORRADE_ASSERT(*format == '{', "Utility::format(): mismatched }", );

        const char* const begin = format;
        int index = next;
        Placeholder placeholder;
        format = parsePlaceholder(format + 1, index, placeholder);
        if(std::size_t(index) < arguments.size())
            appendArgument(sink, arguments.begin()[index], placeholder);
        else
            sink.append(begin, std::size_t(format - begin));
        next = index + 1;
    }
}

}

Containers::String formatString(const char* const format, const std::initializer_list<FormatArgument> arguments) {
    char buffer[StackBufferSize];
    Sink sink{buffer, sizeof(buffer), 0};
    formatTo(sink, format, arguments);
    if(sink.size <= sizeof(buffer)) return Containers::String{buffer, sink.size};

    Containers::String result{NoInit, sink.size};
    sink = {result.data(), sink.size, 0};
    formatTo(sink, format, arguments);
    return result;
}

std::size_t formatBuffer(const Containers::MutableStringView& buffer, const char* const format,
    const std::initializer_list<FormatArgument> arguments) {
    Sink sink{buffer.data(), buffer.data() ? buffer.size() : 0, 0};
    formatTo(sink, format, arguments);
    CORRADE_ASSERT(!buffer.data() || sink.size <= buffer.size(),
        "Utility::formatInto(): buffer too small, expected at least" << sink.size << "but got" << buffer.size(), 0);
    return sink.size;
}

}
