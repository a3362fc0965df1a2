#include "Corrade/Utility/Debug.h"

#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringView.h"

#include <charconv>
#include <cstring>
#include <iostream>
#include <sstream>

#include <unistd.h>

namespace Corrade::Utility {

namespace {

constexpr Debug::Color NoColor = Debug::Color(-1);
constexpr char Plain = '\0';
constexpr char Bold = '1';
constexpr char Inverted = '7';

std::ostream* const DefaultOutputs[]{&std::cout, &std::cerr, &std::cerr};

}

std::ostream*& Debug::output(const Channel channel) {
    thread_local std::ostream* outputs[]{&std::cout, &std::cerr, &std::cerr};
    return outputs[std::size_t(channel)];
}

bool Debug::isTty(const Channel channel) {
    const std::ostream* const current = output(channel);
    return (current == &std::cout && isatty(STDOUT_FILENO)) || (current == &std::cerr && isatty(STDERR_FILENO));
}

Debug::Style& Debug::currentStyle() {
    thread_local Style style{Plain, NoColor};
    return style;
}

std::ostream* Debug::output() { return output(Channel::Debug); }
std::ostream* Warning::output() { return Debug::output(Channel::Warning); }
std::ostream* Error::output() { return Debug::output(Channel::Error); }

std::ostream* Debug::defaultOutput() { return DefaultOutputs[std::size_t(Channel::Debug)]; }
std::ostream* Warning::defaultOutput() { return DefaultOutputs[std::size_t(Channel::Warning)]; }
std::ostream* Error::defaultOutput() { return DefaultOutputs[std::size_t(Channel::Error)]; }

bool Debug::isTty() { return isTty(Channel::Debug); }
bool Warning::isTty() { return Debug::isTty(Channel::Warning); }
bool Error::isTty() { return Debug::isTty(Channel::Error); }

Debug::Debug(const Channel channel, const Flags flags, const char* const file, const int line):
    _output{output(channel)}, _flags{flags}, _channel{channel}, _file{file}, _line{line} {}

Debug::Debug(const Channel channel, std::ostream* const output, const Flags flags):
    _output{output}, _flags{flags}, _channel{channel}, _redirecting{true}, _previousOutput{Debug::output(channel)} {
    Debug::output(channel) = output;
}

Debug::Debug(const Channel channel, Containers::String* const output, const Flags flags):
    Debug{channel, new std::ostringstream, flags} {
    _string = output;
}

Debug::Debug(const Flags flags, const char* const file, const int line): Debug{Channel::Debug, flags, file, line} {}
Debug::Debug(std::ostream* const output, const Flags flags): Debug{Channel::Debug, output, flags} {}
Debug::Debug(Containers::String* const output, const Flags flags): Debug{Channel::Debug, output, flags} {}

Debug::~Debug() {
    /* Nothing came after the location: print at least that. */
    if(_locationPending) {
        _locationPending = false;
        *this << _file << nospace << ":" << nospace << _line;
    }
    resetColor(*this);
    if(_written && !(_flags & Flag::NoNewlineAtTheEnd)) write("\n", 1);
    if(_redirecting) output(_channel) = _previousOutput;
    if(_string) {
        auto* const stream = static_cast<std::ostringstream*>(_output);
        const std::string text = stream->str();
        *_string = *_string + Containers::StringView{text.data(), text.size()};
        delete stream;
    }
}

void Debug::write(const char* const data, const std::size_t size) {
    if(_output) _output->write(data, std::streamsize(size));
}

Debug& Debug::print(const char* const data, const std::size_t size) {
    if(!_output) return *this;
    if(_locationPending) {
        _locationPending = false;
        const Flags immediateFlags = _immediateFlags;
        *this << _file << nospace << ":" << nospace << _line << nospace << ":";
        _immediateFlags = immediateFlags;
        write(" ", 1);
    }
    if(!(immediateFlags() & Flag::NoSpace)) write(" ", 1);
    write(data, size);
    _written = true;
    _immediateFlags = {};
    return *this;
}

Debug& Debug::operator!() && {
    _locationPending = _output && _file;
    return *this;
}

void Debug::nospace(Debug& debug) { debug._immediateFlags |= Flag::NoSpace; }

void Debug::space(Debug& debug) { debug << nospace << " " << nospace; }

void Debug::newline(Debug& debug) {
    debug.write("\n", 1);
    debug._immediateFlags |= Flag::NoSpace;
}

void Debug::hex(Debug& debug) { debug._immediateFlags |= Flag::Hex; }

void Debug::packed(Debug& debug) { debug._immediateFlags |= Flag::Packed; }

void Debug::color(Debug& debug) { debug._immediateFlags |= Flag::Color; }

void Debug::writeStyle(const Style& style) {
    std::string sequence = "\033[0";
    if(style.attribute != Plain) {
        sequence += ';';
        sequence += style.attribute;
    }
    if(style.color != NoColor) {
        sequence += ";3";
        sequence += char('0' + int(style.color));
    }
    sequence += 'm';
    write(sequence.data(), sequence.size());
}

template<char attribute, int color> void Debug::applyStyle(Debug& debug) {
    if(!debug._output || debug._flags & Flag::DisableColors) return;
    Style& current = currentStyle();
    if(!debug._styled) debug._previousStyle = current;
    debug._styled = true;
    current = {attribute, Color(color)};
    debug.writeStyle(current);
}

template<char attribute> Debug::Modifier Debug::style(const Color color) {
    static constexpr Modifier Modifiers[]{applyStyle<attribute, 0>, applyStyle<attribute, 1>, applyStyle<attribute, 2>,
        applyStyle<attribute, 3>, applyStyle<attribute, 4>, applyStyle<attribute, 5>, applyStyle<attribute, 6>,
        applyStyle<attribute, 7>, nullptr, applyStyle<attribute, 9>};
    return Modifiers[int(color)];
}

Debug::Modifier Debug::color(const Color color) { return style<Plain>(color); }
Debug::Modifier Debug::boldColor(const Color color) { return style<Bold>(color); }
Debug::Modifier Debug::invertedColor(const Color color) { return style<Inverted>(color); }

void Debug::resetColor(Debug& debug) {
    if(!debug._styled) return;
    debug._styled = false;
    currentStyle() = debug._previousStyle;
    debug.writeStyle(debug._previousStyle);
}

Debug& Debug::operator<<(const char* const value) { return print(value, value ? std::strlen(value) : 0); }

Debug& Debug::operator<<(const Containers::StringView value) { return print(value.data(), value.size()); }

Debug& Debug::operator<<(const Containers::MutableStringView value) { return print(value.data(), value.size()); }

Debug& Debug::operator<<(const Containers::String& value) { return print(value.data(), value.size()); }

Debug& Debug::operator<<(std::nullptr_t) { return *this << "nullptr"; }

Debug& Debug::operator<<(const void* const value) {
    _immediateFlags |= Flag::Hex;
    return *this << reinterpret_cast<std::uintptr_t>(value);
}

Debug& Debug::operator<<(const bool value) { return *this << (value ? "true" : "false"); }

Debug& Debug::operator<<(const unsigned char value) {
    if(!(immediateFlags() & Flag::Color)) return *this << unsigned{value};

    /* A grey block twice as wide as a character, hence about square. Its darkness shows without colours as well. */
    static constexpr const char* Blocks[]{"  ", "\u2591\u2591", "\u2592\u2592", "\u2593\u2593", "\u2588\u2588"};
    const char* const block = Blocks[value / 51 < 4 ? value / 51 : 4];
    if(_flags & Flag::DisableColors) return *this << block;
    const std::string level = std::to_string(value);
    const std::string rgb = level + ';' + level + ';' + level + 'm';
    const std::string text = "\033[38;2;" + rgb + "\033[48;2;" + rgb + block;
    print(text.data(), text.size());
    writeStyle(currentStyle());
    return *this;
}

Debug& Debug::printInteger(const long long value, const unsigned long long bits) {
    if(immediateFlags() & Flag::Hex) return *this << bits;
    char buffer[24];
    return print(buffer, std::to_chars(buffer, buffer + sizeof(buffer), value).ptr - buffer);
}

Debug& Debug::operator<<(const unsigned long long value) {
    char buffer[24]{'0', 'x'};
    const bool isHex = bool(immediateFlags() & Flag::Hex);
    char* const digits = isHex ? buffer + 2 : buffer;
    return print(buffer, std::to_chars(digits, buffer + sizeof(buffer), value, isHex ? 16 : 10).ptr - buffer);
}

/* Independent of the C locale, which a host may have changed. */
template<class T> Debug& Debug::printFloat(const T value, const int precision) {
    char buffer[48];
    return print(buffer,
        std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::general, precision).ptr - buffer);
}

Debug& Debug::operator<<(const float value) { return printFloat(value, 6); }
Debug& Debug::operator<<(const double value) { return printFloat(value, 15); }
Debug& Debug::operator<<(const long double value) { return printFloat(value, 18); }

Debug& Debug::operator<<(const char32_t value) {
    char buffer[16];
    const int size = std::snprintf(buffer, sizeof(buffer), "U+%04X", unsigned(value));
    return print(buffer, std::size_t(size));
}

Debug& Debug::operator<<(const char32_t* value) {
    *this << "{";
    for(const char32_t* i = value; *i; ++i) {
        if(i != value) *this << nospace << ", ";
        *this << nospace << *i;
    }
    return *this << nospace << "}";
}

}
