#include "Panels/Inspector/Refusal.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace VantrelEngine {

namespace {

constexpr double MaxFloat = std::numeric_limits<float>::max();
constexpr double MaxWhole = 4294967295.0, MinWhole = -2147483648.0;

bool isNumber(const JsonValue& value) { return value.IsNumber(); }

bool isWhole(const JsonValue& value) {
    if(!value.IsNumber()) return false;
    const double number = value.GetDouble();
    return std::floor(number) == number && number >= MinWhole && number <= MaxWhole;
}

bool isText(const JsonValue& value) { return value.IsString(); }

bool isArrayOf(const JsonValue& value, bool (*isElement)(const JsonValue&)) {
    return value.IsArray() && std::all_of(value.Begin(), value.End(), isElement);
}

bool isVector(const JsonValue& value, unsigned size, bool (*isElement)(const JsonValue&)) {
    return isArrayOf(value, isElement) && value.Size() == size;
}

// Colours and vectors of four may lack the last one.
bool isColor(const JsonValue& value, unsigned size) {
    return isVector(value, size, isNumber) || (size == 4 && isVector(value, 3, isNumber));
}

// Without a list: this is asked of each object.
bool isChoice(const SchemaKey& key, const JsonValue& value) {
    if(!value.IsString()) return false;
    const std::string_view wanted{value.GetString(), value.GetStringLength()};
    for(std::string_view rest{key.choiceTexts}; !rest.empty();) {
        const std::size_t end = std::min(rest.find('|'), rest.size());
        if(rest.substr(0, end) == wanted) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

const char* unless(bool isFine, const char* reason) { return isFine ? nullptr : reason; }

std::string shortText(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", number);
    return text;
}

std::string whyNumbersRefused(const SchemaKey& key, const JsonValue& value) {
    if(value.IsNumber()) return whyNumberRefused(key, value.GetDouble());
    bool isZero = true;
    for(const JsonValue& number: value.GetArray()) {
        const std::string reason = whyNumberRefused(key, number.GetDouble());
        if(!reason.empty()) return reason;
        isZero = isZero && number.GetDouble() == 0.0;
    }
    return key.kind == KeyKind::Rotation && isZero ? "a quaternion is not zero" : "";
}

} // namespace

std::string whyNumberRefused(const SchemaKey& key, double number) {
    const bool mayBeInfinite = key.kind == KeyKind::NumberOrInfinity;
    if(!std::isfinite(number)) return "the number is not finite";
    if(!mayBeInfinite && std::abs(number) > MaxFloat) return "the number is too large for a float";
    if(key.isNeverZero && number == 0.0) return "a factor of zero leaves nothing to be seen, take a small one";
    const bool isOut = key.isOpen ? !(number > key.min && number < key.max) : !(number >= key.min && number <= key.max);
    return isOut ? shortText(number) + " is not " + rangeText(key) : std::string{};
}

std::vector<std::string> splitChoices(const char* texts) {
    std::vector<std::string> choices;
    for(std::string_view rest{texts}; !rest.empty();) {
        const std::size_t end = std::min(rest.find('|'), rest.size());
        choices.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return choices;
}

const char* whyNotShown(const SchemaKey& key, const JsonValue& value) {
    switch(key.kind) {
    case KeyKind::Text:
    case KeyKind::LongText: return unless(value.IsString(), "expected is a text");
    case KeyKind::Reference: return unless(value.IsString(), "expected is an id, a text");
    case KeyKind::Truth: return unless(value.IsBool(), "expected is true or false");
    case KeyKind::Number:
    case KeyKind::NumberOrInfinity: return unless(value.IsNumber(), "expected is a number");
    case KeyKind::WholeNumber: return unless(isWhole(value), "expected is a whole number");
    case KeyKind::Flags:
        return unless(isWhole(value) && value.GetDouble() >= 0.0, "expected is a whole number that is not negative");
    case KeyKind::Vector:
        return unless(key.size == 4 ? isColor(value, 4) : isVector(value, key.size, isNumber),
            key.size == 3 ? "expected are 3 numbers" : "expected are 4 numbers");
    case KeyKind::WholeVector: return unless(isVector(value, key.size, isWhole), "expected are 2 whole numbers");
    case KeyKind::Color:
    case KeyKind::ScreenColor:
        return unless(
            isColor(value, key.size), key.size == 3 ? "expected are 3 numbers" : "expected are 3 or 4 numbers");
    case KeyKind::Rotation: return unless(isVector(value, 4, isNumber), "expected are 4 numbers");
    case KeyKind::Choice: return unless(isChoice(key, value), "expected is one of the choices");
    case KeyKind::References: return unless(isArrayOf(value, isText), "expected is an array of ids");
    case KeyKind::Texts: return unless(isArrayOf(value, isText), "expected is an array of texts");
    case KeyKind::Raw: return nullptr;
    case KeyKind::Group: return unless(value.IsArray(), "expected is an array");
    }
    return nullptr;
}

std::string whyRefused(const SchemaKey& key, const JsonValue& value) {
    if(const char* const reason = whyNotShown(key, value)) return reason;
    switch(key.kind) {
    case KeyKind::Number:
    case KeyKind::NumberOrInfinity:
    case KeyKind::WholeNumber:
    case KeyKind::Vector:
    case KeyKind::WholeVector:
    case KeyKind::Color:
    case KeyKind::ScreenColor:
    case KeyKind::Rotation: return whyNumbersRefused(key, value);
    default: return {};
    }
}

std::string rangeText(const SchemaKey& key) {
    const bool hasMin = std::isfinite(key.min), hasMax = std::isfinite(key.max);
    if(hasMin && hasMax)
        return (key.isOpen ? "between " : "from ") + shortText(key.min) + (key.isOpen ? " and " : " to ") +
            shortText(key.max);
    if(hasMin) return key.isOpen ? "above " + shortText(key.min) : shortText(key.min) + " or more";
    if(hasMax) return key.isOpen ? "below " + shortText(key.max) : shortText(key.max) + " or less";
    return {};
}

} // namespace VantrelEngine
