#include "VantrelHost/DocumentReader.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>

#include <fcntl.h>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Data/Project/Utf8.h"

namespace VantrelEngine {

namespace {

// Hands what the parser finds on to the document, and stops it at what the document must not get.
//
// The parser gives numbers as they are written: its own conversion reads beyond its table of powers for a long fraction
// that is close to zero.
class Builder {
public:
    explicit Builder(JsonDocument& document): _document{document} {}

    bool Null() { return _document.Null(); }
    bool Bool(bool value) { return _document.Bool(value); }
    bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
        const char* const end = text + size;
        if(std::find_if(text, end, [](char c) { return c == '.' || c == 'e' || c == 'E'; }) == end) {
            if(std::string_view{text, size} == "-0") return _document.Double(-0.0);
            std::int64_t whole;
            if(readAll(text, end, whole)) return _document.Int64(whole);
            std::uint64_t large;
            if(readAll(text, end, large)) return _document.Uint64(large);
        }
        return realNumber(text, end);
    }
    bool String(const char* text, rapidjson::SizeType size, bool copy) {
        return checked(text, size) && _document.String(text, size, copy);
    }
    bool Key(const char* text, rapidjson::SizeType size, bool copy) {
        return checked(text, size) && _document.Key(text, size, copy);
    }
    bool StartObject() { return enter() && _document.StartObject(); }
    bool StartArray() { return enter() && _document.StartArray(); }
    bool EndObject(rapidjson::SizeType count) {
        --_depth;
        return _document.EndObject(count);
    }
    bool EndArray(rapidjson::SizeType count) {
        --_depth;
        return _document.EndArray(count);
    }
    // Never called: numbers come as text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

    // Why the parser was stopped.
    const std::string& reason() const { return _reason; }

private:
    template<class T> static bool readAll(const char* begin, const char* end, T& number) {
        const auto [last, error] = std::from_chars(begin, end, number);
        return error == std::errc{} && last == end;
    }

    bool realNumber(const char* begin, const char* end) {
        double number = 0.0;
        if(readAll(begin, end, number)) return _document.Double(number);
        // Out of range is also what rounds to zero.
        if(!isTiny(begin, end)) return stop("the number is too large");
        return _document.Double(*begin == '-' ? -0.0 : 0.0);
    }

    // Of a number that a double has no value for: whether it is too close to zero, and not too large. The power of ten
    // of its first digit that is not zero tells.
    static bool isTiny(const char* begin, const char* end) {
        const char* const exponentMark = std::find_if(begin, end, [](char c) { return c == 'e' || c == 'E'; });
        const char* const point = std::find(begin, exponentMark, '.');
        const char* const digit = std::find_if(begin, exponentMark, [](char c) { return c >= '1' && c <= '9'; });
        const std::ptrdiff_t power = digit < point ? point - digit - 1 : point - digit;
        if(exponentMark == end) return power < 0;
        const bool hasPlus = exponentMark[1] == '+';
        std::int64_t exponent = 0;
        if(!readAll(exponentMark + 1 + hasPlus, end, exponent)) return exponentMark[1] == '-';
        return exponent < -power;
    }

    bool enter() { return ++_depth <= MaxNesting || stop("more than 512 objects and arrays inside of each other"); }

    // The parser takes escaped halves of characters as they come.
    bool checked(const char* text, std::size_t size) { return isUtf8({text, size}) || stop("the text is not UTF-8"); }

    bool stop(const char* reason) {
        _reason = reason;
        return false;
    }

    JsonDocument& _document;
    std::size_t _depth = 0;
    std::string _reason;
};
static_assert(MaxNesting == 512, "the reason names the limit");

std::string placed(std::string_view text, std::size_t offset, const std::string& reason) {
    const std::string_view before = text.substr(0, offset);
    const std::size_t line = std::size_t(std::count(before.begin(), before.end(), '\n')) + 1;
    // Also right for the first line, where nothing is found.
    const std::size_t column = before.size() - (before.rfind('\n') + 1) + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + reason;
}

std::string lowered(std::string text) {
    if(text.size() > 1 && text[0] >= 'A' && text[0] <= 'Z' && text[1] >= 'a') text[0] = char(text[0] - 'A' + 'a');
    if(!text.empty() && text.back() == '.') text.pop_back();
    return text;
}

// Fills a document; what JsonDocument::Populate() takes.
struct Parse {
    bool operator()(JsonDocument& document) {
        Builder builder{document};
        rapidjson::MemoryStream stream{text.data(), text.size()};
        const rapidjson::ParseResult result =
            rapidjson::Reader{}.Parse<rapidjson::kParseNumbersAsStringsFlag>(stream, builder);
        if(result.IsError()) {
            error = placed(text, result.Offset(),
                builder.reason().empty() ? lowered(rapidjson::GetParseError_En(result.Code())) : builder.reason());
        } else if(stream.Tell() != text.size()) {
            // The parser takes a zero byte for the end.
            error = placed(text, stream.Tell(), "a zero byte");
        }
        return error.empty();
    }

    std::string_view text;
    std::string error;
};

// An open file, closed at the end.
class File {
public:
    // Does not wait for the other end of a pipe.
    explicit File(const std::string& path): _file{open(path.data(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)} {}
    ~File() {
        if(_file >= 0) close(_file);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::string read(std::string& contents) const {
        struct stat status;
        if(_file < 0 || fstat(_file, &status) != 0) return std::strerror(errno);
        if(S_ISDIR(status.st_mode)) return "this is a folder";
        if(!S_ISREG(status.st_mode)) return "this is not a regular file";
        if(std::size_t(status.st_size) > MaxDocumentSize)
            return "the file has " + std::to_string(status.st_size) + " bytes, more than " +
                std::to_string(MaxDocumentSize);
        contents.resize(std::size_t(status.st_size));
        return readBytes(contents);
    }

private:
    std::string readBytes(std::string& contents) const {
        for(std::size_t done = 0; done != contents.size();) {
            const ssize_t count = ::read(_file, &contents[done], contents.size() - done);
            if(count < 0 && errno == EINTR) continue;
            if(count <= 0) return count ? std::strerror(errno) : "the file became shorter while it was read";
            done += std::size_t(count);
        }
        return {};
    }

    const int _file;
};

} // namespace

std::string parseDocument(std::string_view text, JsonDocument& document) {
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if(text.substr(0, byteOrderMark.size()) == byteOrderMark) text.remove_prefix(byteOrderMark.size());
    Parse parse{text, {}};
    JsonDocument parsed;
    parsed.Populate(parse);
    if(!parse.error.empty()) return parse.error;
    if(!parsed.IsObject()) return placed(text, 0, "a project is an object");
    document.Swap(parsed);
    return {};
}

std::string readDocument(const std::string& path, JsonDocument& document) {
    std::string contents;
    std::string error = File{path}.read(contents);
    if(error.empty()) error = parseDocument(contents, document);
    return error.empty() ? error : path + ": " + error;
}

} // namespace VantrelEngine
