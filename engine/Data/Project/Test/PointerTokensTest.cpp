#include "Data/Project/PointerTokens.h"

#include <gtest/gtest.h>
#include <rapidjson/pointer.h>

#include "Vantrel/EngineData/Json.h"

namespace {

using namespace VantrelEngine;

TEST(PointerTokensTest, agreeWithTheJsonLibrary) {
    std::string many;
    for(int i = 0; i != 40; ++i) many += "/" + std::to_string(i * 7);
    const std::string texts[]{"", "/", "//", "/a", "/a/", "/a//b", "/a/b/c", "/0/00/01/10/-/-1", "/a~1b/~0/~01", "/~",
        "/a~2", "a", "a/b", "/%20", "#", "#/a", "#/a%20b/~1", "#/%", "#a", "/4294967294", "/4294967295", "/4294967296",
        "/99999999999999999999", "/1234567890", many, many + "/~1", "/\xc3\xa4"};
    for(const std::string& text: texts) {
        const PointerTokens tokens{{text.data(), text.size()}};
        const rapidjson::GenericPointer<JsonValue> expected{text.data(), text.size()};
        ASSERT_EQ(tokens.isValid(), expected.IsValid()) << text;
        if(!tokens.isValid()) continue;
        ASSERT_EQ(tokens.size(), expected.GetTokenCount()) << text;
        for(std::size_t i = 0; i != tokens.size(); ++i) {
            const auto& token = expected.GetTokens()[i];
            EXPECT_EQ(tokens[i].name, std::string_view(token.name, token.length)) << text;
            const bool isIndex = token.index != rapidjson::kPointerInvalidIndex;
            EXPECT_EQ(tokens[i].index, isIndex ? token.index : PointerTokens::Token::NoIndex) << text;
        }
    }
}

} // namespace
