#pragma once

/** Line-oriented output to stdout and stderr. */

#include "Corrade/Containers/Containers.h"
#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/Move.h"
#include "Corrade/Utility/Utility.h"
#include "Corrade/Utility/VisibilityMacros.h"

#include <iosfwd>
#include <type_traits>

namespace Corrade::Utility {

/**
One object is one line: values are separated by blanks and the destructor ends the line, unless nothing was printed.

A Debug made with a target redirects the output of all further Debug objects of this thread as long as it lives;
Warning and Error are redirected separately. Redirections nest, so they have to end in the opposite order.

Types are made printable with an operator in their own namespace, `Debug& operator<<(Debug&, T)`.
*/
class CORRADE_VISIBILITY_EXPORT Debug {
public:
    enum class Flag : unsigned char {
        NoNewlineAtTheEnd = 1,
        /** Colour modifiers print nothing. */
        DisableColors = 2,
        /** No blanks between values. */
        NoSpace = 4,
        /** Lists without braces and separators. */
        Packed = 8,
        /** Colour values as coloured blocks. */
        Color = 16,
        /** Integers as 0x… */
        Hex = 128
    };
    typedef Containers::EnumSet<Flag> Flags;

    enum class Color : char { Black, Red, Green, Yellow, Blue, Magenta, Cyan, White, Default = 9 };

    typedef void (*Modifier)(Debug&);

    static void nospace(Debug& debug);
    /** A blank, and none of the usual ones next to it. */
    static void space(Debug& debug);
    static void newline(Debug& debug);

    /** These three change how the next value is printed. */
    static void hex(Debug& debug);
    static void packed(Debug& debug);
    static void color(Debug& debug);

    /** Colours last until the next colour modifier or the end of the object, which restores what was before it. */
    static Modifier color(Color color);
    static Modifier boldColor(Color color);
    static Modifier invertedColor(Color color);
    static void resetColor(Debug& debug);

    /** Current target on this thread; null when output is swallowed. */
    static std::ostream* output();
    static std::ostream* defaultOutput();
    /** Whether the current target is a terminal. */
    static bool isTty();

    explicit Debug(Flags flags = {}, const char* file = __builtin_FILE(), int line = __builtin_LINE());
    /** Null swallows the output. */
    explicit Debug(std::ostream* output, Flags flags = {});
    explicit Debug(std::nullptr_t, Flags flags = {}): Debug{static_cast<std::ostream*>(nullptr), flags} {}
    /** What was printed is appended to the string when the object ends, not earlier. */
    explicit Debug(Containers::String* output, Flags flags = {});

    Debug(const Debug&) = delete;
    ~Debug();
    Debug& operator=(const Debug&) = delete;

    /** Begins the line with the place in the source where the object, which doesn't redirect, was made. */
    Debug& operator!() &&;

    /** Flags of all values; for operators that print composite types. */
    Flags flags() const { return _flags; }
    void setFlags(Flags flags) { _flags = flags; }
    /** Flags of the next value: flags() and what modifiers added. */
    Flags immediateFlags() const { return _flags | _immediateFlags; }

    Debug& operator<<(Modifier modifier) {
        modifier(*this);
        return *this;
    }

    Debug& operator<<(const char* value);
    Debug& operator<<(Containers::StringView value);
    Debug& operator<<(Containers::MutableStringView value);
    Debug& operator<<(const Containers::String& value);
    Debug& operator<<(std::nullptr_t);
    Debug& operator<<(const void* value);
    Debug& operator<<(bool value);
    /** A number, not a character. */
    Debug& operator<<(char value) { return *this << int{value}; }
    Debug& operator<<(unsigned char value);
    Debug& operator<<(int value) { return printInteger(value, static_cast<unsigned int>(value)); }
    Debug& operator<<(long value) { return printInteger(value, static_cast<unsigned long>(value)); }
    Debug& operator<<(long long value) { return printInteger(value, static_cast<unsigned long long>(value)); }
    Debug& operator<<(unsigned int value) { return *this << static_cast<unsigned long long>(value); }
    Debug& operator<<(unsigned long value) { return *this << static_cast<unsigned long long>(value); }
    Debug& operator<<(unsigned long long value);
    /** 6, 15 and 18 significant digits. */
    Debug& operator<<(float value);
    Debug& operator<<(double value);
    Debug& operator<<(long double value);
    /** U+… */
    Debug& operator<<(char32_t value);
    /** A list of code points. */
    Debug& operator<<(const char32_t* value);

protected:
    enum class Channel : unsigned char { Debug, Warning, Error };

    Debug(Channel channel, Flags flags, const char* file, int line);
    Debug(Channel channel, std::ostream* output, Flags flags);
    Debug(Channel channel, Containers::String* output, Flags flags);

    static std::ostream*& output(Channel channel);
    static bool isTty(Channel channel);

private:
    struct Style {
        char attribute;
        Color color;
    };

    template<char attribute, int color> static void applyStyle(Debug& debug);
    template<char attribute> static Modifier style(Color color);
    static Style& currentStyle();

    /** Everything that counts as a value ends up here. */
    Debug& print(const char* data, std::size_t size);
    Debug& printInteger(long long value, unsigned long long bits);
    template<class T> Debug& printFloat(T value, int precision);
    /** Just the characters. */
    void write(const char* data, std::size_t size);
    void writeStyle(const Style& style);

    std::ostream* _output;
    Flags _flags;
    Flags _immediateFlags = Flag::NoSpace;
    Channel _channel;
    bool _redirecting = false;
    bool _written = false;
    bool _styled = false;
    bool _locationPending = false;
    Style _previousStyle{};
    std::ostream* _previousOutput = nullptr;
    /** Where the text goes that was collected in the stream behind _output, which is owned then. */
    Containers::String* _string = nullptr;
    const char* _file = nullptr;
    int _line = 0;
};

CORRADE_ENUMSET_OPERATORS(Debug::Flags)

/** Output to stderr that tells of something suspicious. */
class CORRADE_VISIBILITY_EXPORT Warning: public Debug {
public:
    static std::ostream* output();
    static std::ostream* defaultOutput();
    static bool isTty();

    explicit Warning(Flags flags = {}, const char* file = __builtin_FILE(), int line = __builtin_LINE()):
        Debug{Channel::Warning, flags, file, line} {}
    explicit Warning(std::ostream* output, Flags flags = {}): Debug{Channel::Warning, output, flags} {}
    explicit Warning(std::nullptr_t, Flags flags = {}): Warning{static_cast<std::ostream*>(nullptr), flags} {}
    explicit Warning(Containers::String* output, Flags flags = {}): Debug{Channel::Warning, output, flags} {}
};

/** Output to stderr that tells of a failure. */
class CORRADE_VISIBILITY_EXPORT Error: public Debug {
public:
    static std::ostream* output();
    static std::ostream* defaultOutput();
    static bool isTty();

    explicit Error(Flags flags = {}, const char* file = __builtin_FILE(), int line = __builtin_LINE()):
        Debug{Channel::Error, flags, file, line} {}
    explicit Error(std::ostream* output, Flags flags = {}): Debug{Channel::Error, output, flags} {}
    explicit Error(std::nullptr_t, Flags flags = {}): Error{static_cast<std::ostream*>(nullptr), flags} {}
    explicit Error(Containers::String* output, Flags flags = {}): Debug{Channel::Error, output, flags} {}
};

/** Makes operators that take `Debug&` usable on a temporary. */
template<class T> Debug& operator<<(Debug&& debug, const T& value) { return debug << value; }

namespace Implementation {

template<class T, class = void> struct IsIterable: std::false_type {};
template<class T>
struct IsIterable<T, std::void_t<decltype(*std::declval<const T&>().begin()), decltype(std::declval<const T&>().end())>>
    : std::true_type {};

/** Types with iterators that are nevertheless printed as one value. */
template<class T, class = void> struct IsString: std::false_type {};
template<class T> struct IsString<T, std::void_t<decltype(std::declval<const T&>().c_str())>>: std::true_type {};
template<class T> struct IsString<Containers::BasicStringView<T>>: std::true_type {};
template<> struct IsString<Containers::String>: std::true_type {};

template<class T> struct IsList: std::bool_constant<IsIterable<T>::value && !IsString<T>::value> {};

}

/** `{a, b}`; a list of lists has one inner list a line. The flags of the next value apply to all items. */
template<class T> std::enable_if_t<Implementation::IsList<T>::value, Debug&> operator<<(Debug& debug, const T& list) {
    typedef std::decay_t<decltype(*list.begin())> Item;
    const Debug::Flags previousFlags = debug.flags();
    const Debug::Flags flags = debug.immediateFlags();
    const bool isPacked = bool(flags & Debug::Flag::Packed);
    const char* const separator =
        Implementation::IsList<Item>::value ? (isPacked ? "\n" : ",\n ") : (isPacked ? "" : ", ");

    debug << (isPacked ? "" : "{");
    debug.setFlags(previousFlags | (flags & ~Debug::Flags{Debug::Flag::NoSpace}));
    bool isFirst = true;
    for(const auto& item: list) {
        if(!isFirst) debug << Debug::nospace << separator;
        debug << Debug::nospace << item;
        isFirst = false;
    }
    debug.setFlags(previousFlags);
    if(!isPacked) debug << Debug::nospace << "}";
    return debug;
}

}
