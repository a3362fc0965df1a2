#include "Data/Project/PointerTokens.h"

#include <algorithm>

#include <rapidjson/pointer.h>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::size_t indexOf(std::string_view name) {
    if(name.empty() || name.size() > 10 || (name[0] == '0' && name.size() > 1)) return PointerTokens::Token::NoIndex;
    std::size_t index = 0;
    for(const char c: name) {
        if(c < '0' || c > '9') return PointerTokens::Token::NoIndex;
        index = index * 10 + std::size_t(c - '0');
    }
    return index < rapidjson::kPointerInvalidIndex ? index : PointerTokens::Token::NoIndex;
}

} // namespace

// The JSON library unescapes, and owns the texts.
struct PointerTokens::Unescaped {
    rapidjson::GenericPointer<JsonValue> pointer;
};

PointerTokens::PointerTokens(Containers::StringView pointer) {
    if(pointer.isEmpty()) return;
    const std::string_view text{pointer.data(), pointer.size()};
    if(text[0] != '/' || text.find('~') != text.npos) {
        readUnescaped(pointer);
        return;
    }
    for(std::size_t begin = 1; begin <= text.size();) {
        const std::size_t end = std::min(text.find('/', begin), text.size());
        append(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

PointerTokens::~PointerTokens() = default;

void PointerTokens::append(std::string_view name) {
    const Token token{name, indexOf(name)};
    if(_size < InlineCount) {
        _inline[_size++] = token;
        return;
    }
    if(_more.empty()) _more.assign(_inline, _inline + InlineCount);
    _more.push_back(token);
    _tokens = _more.data();
    _size = _more.size();
}

void PointerTokens::readUnescaped(Containers::StringView pointer) {
    _unescaped.reset(new Unescaped{rapidjson::GenericPointer<JsonValue>{pointer.data(), pointer.size()}});
    _isValid = _unescaped->pointer.IsValid();
    if(!_isValid) return;
    for(std::size_t i = 0; i != _unescaped->pointer.GetTokenCount(); ++i) {
        const auto& token = _unescaped->pointer.GetTokens()[i];
        append({token.name, token.length});
    }
}

} // namespace VantrelEngine
