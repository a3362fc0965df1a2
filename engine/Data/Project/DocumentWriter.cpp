#include "VantrelHost/DocumentWriter.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <VantrelHost/DocumentReader.h>

namespace VantrelEngine {

namespace {

bool isContainer(const JsonValue& value) { return value.IsObject() || value.IsArray(); }

// With a point or an exponent, so that it is read back as a double.
std::string shortestText(double number) {
    const double size = std::abs(number);
    const bool isFixed = number == 0.0 || (size >= 1e-6 && size < 1e17);
    char digits[32];
    const char* const end = std::to_chars(
        digits, std::end(digits), number, isFixed ? std::chars_format::fixed : std::chars_format::scientific)
                                .ptr;
    const std::string_view written{digits, std::size_t(end - digits)};
    const std::size_t mark = written.find('e');
    std::string text{written.substr(0, mark)};
    if(isFixed) return text.find('.') == text.npos ? text + ".0" : text;
    // "e+39" and "e-07" are 1e39 and 1e-7.
    std::string_view exponent = written.substr(mark + 1);
    text += exponent[0] == '-' ? "e-" : "e";
    return text.append(exponent.substr(exponent.find_first_of("123456789")));
}

class Writer {
public:
    Writer() { _writer.SetIndent(' ', 2); }

    bool write(const JsonValue& value) {
        if(value.IsObject()) return enter() && writeObject(value);
        if(value.IsArray()) return enter() && writeArray(value);
        if(value.IsDouble()) return writeNumber(value.GetDouble());
        return value.Accept(_writer);
    }

    std::string text() const { return {_buffer.GetString(), _buffer.GetSize()}; }

    // Of a value that was not written.
    std::string error() const { return (_place.empty() ? "the project" : _place.substr(1)) + ": " + _reason; }

private:
    bool writeObject(const JsonValue& object) {
        _writer.StartObject();
        for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
            _writer.Key(member->name.GetString(), member->name.GetStringLength());
            if(!write(member->value))
                return failed(std::string{member->name.GetString(), member->name.GetStringLength()});
        }
        --_depth;
        return _writer.EndObject();
    }

    bool writeArray(const JsonValue& array) {
        bool isPlain = true;
        for(const JsonValue& element: array.GetArray()) isPlain = isPlain && !isContainer(element);
        _writer.StartArray();
        if(isPlain) _writer.SetFormatOptions(rapidjson::kFormatSingleLineArray);
        for(rapidjson::SizeType i = 0; i != array.Size(); ++i)
            if(!write(array[i])) return failed(std::to_string(i));
        _writer.EndArray();
        _writer.SetFormatOptions(rapidjson::kFormatDefault);
        --_depth;
        return true;
    }

    bool writeNumber(double number) {
        if(!std::isfinite(number)) {
            _reason = "the number is not finite";
            return false;
        }
        const std::string text = shortestText(number);
        return _writer.RawValue(text.data(), text.size(), rapidjson::kNumberType);
    }

    bool enter() {
        if(++_depth <= MaxNesting) return true;
        _reason = "more than 512 objects and arrays inside of each other";
        return false;
    }
    static_assert(MaxNesting == 512, "the reason names the limit");

    // Found out at the innermost value first.
    bool failed(const std::string& step) {
        _place = '/' + step + _place;
        return false;
    }

    rapidjson::StringBuffer _buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> _writer{_buffer};
    std::size_t _depth = 0;
    std::string _place, _reason;
};

bool isSameText(const JsonValue& a, const JsonValue& b) {
    return a.GetStringLength() == b.GetStringLength() &&
        std::memcmp(a.GetString(), b.GetString(), a.GetStringLength()) == 0;
}

bool isSame(const JsonValue& a, const JsonValue& b);

bool isSameObject(const JsonValue& a, const JsonValue& b) {
    if(a.MemberCount() != b.MemberCount()) return false;
    for(auto left = a.MemberBegin(), right = b.MemberBegin(); left != a.MemberEnd(); ++left, ++right)
        if(!isSameText(left->name, right->name) || !isSame(left->value, right->value)) return false;
    return true;
}

bool isSameArray(const JsonValue& a, const JsonValue& b) {
    if(a.Size() != b.Size()) return false;
    for(rapidjson::SizeType i = 0; i != a.Size(); ++i)
        if(!isSame(a[i], b[i])) return false;
    return true;
}

bool isSameNumber(const JsonValue& a, const JsonValue& b) {
    if(a.IsDouble() != b.IsDouble()) return false;
    if(!a.IsDouble()) return a == b;
    const double left = a.GetDouble(), right = b.GetDouble();
    return std::memcmp(&left, &right, sizeof(double)) == 0;
}

// Members in the same order, numbers of the same kind.
bool isSame(const JsonValue& a, const JsonValue& b) {
    if(a.GetType() != b.GetType()) return false;
    if(a.IsObject()) return isSameObject(a, b);
    if(a.IsArray()) return isSameArray(a, b);
    if(a.IsString()) return isSameText(a, b);
    return !a.IsNumber() || isSameNumber(a, b);
}

} // namespace

std::string writeDocument(const JsonValue& document, std::string& text) {
    Writer writer;
    if(!writer.write(document)) return writer.error();
    std::string written = writer.text() + '\n';
    JsonDocument readBack;
    const std::string error = parseDocument(written, readBack);
    if(!error.empty()) return "the text cannot be read back: " + error;
    if(!isSame(document, readBack)) return "the text is read back as something else";
    text = std::move(written);
    return {};
}

} // namespace VantrelEngine
