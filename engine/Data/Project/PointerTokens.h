#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <Corrade/Containers/StringView.h>

namespace VantrelEngine {

// The tokens of a JSON pointer (RFC 6901; also as a URI fragment, "#/a%20b"). A pointer of few tokens without escapes,
// which is nearly every one, costs no memory: the tokens point into its text, which has to live as long.
class PointerTokens {
public:
    struct Token {
        static constexpr std::size_t NoIndex = ~std::size_t{};

        std::string_view name;
        // As a position in an array: digits without a leading zero.
        std::size_t index;
    };

    explicit PointerTokens(Corrade::Containers::StringView pointer);
    PointerTokens(const PointerTokens&) = delete;
    PointerTokens& operator=(const PointerTokens&) = delete;
    ~PointerTokens();

    bool isValid() const { return _isValid; }
    std::size_t size() const { return _size; }
    const Token& operator[](std::size_t i) const { return _tokens[i]; }

private:
    static constexpr std::size_t InlineCount = 12;

    struct Unescaped;

    void append(std::string_view name);
    void readUnescaped(Corrade::Containers::StringView pointer);

    Token _inline[InlineCount];
    std::vector<Token> _more;
    std::unique_ptr<Unescaped> _unescaped;
    const Token* _tokens = _inline;
    std::size_t _size = 0;
    bool _isValid = true;
};

} // namespace VantrelEngine
