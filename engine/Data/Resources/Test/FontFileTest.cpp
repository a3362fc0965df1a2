#include "Data/Resources/FontFile.h"

#include <cstdint>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontBuilder.h"
#include "GlbBuilder.h"

namespace {

using namespace VantrelEngine;
using namespace VantrelEngine::Test;
using testing::HasSubstr;

std::string reasonOf(const std::string& bytes) {
    std::string reason;
    const bool isFont = checkFont(view(bytes), reason);
    EXPECT_EQ(isFont, reason.empty());
    return reason;
}

const std::string Signature{"\0\1\0\0", 4};

TEST(FontFileTest, fonts) {
    for(const std::string& signature: {Signature, std::string{"OTTO"}, std::string{"true"}})
        EXPECT_EQ(reasonOf(fontFile(signature)), "");
    EXPECT_EQ(reasonOf(fontCollection(1)), "");
    EXPECT_EQ(reasonOf(fontCollection(3)), "");
}

TEST(FontFileTest, fontsThatAreNone) {
    EXPECT_THAT(reasonOf(""), HasSubstr("not a TrueType"));
    EXPECT_THAT(reasonOf(fontFile("wOFF")), HasSubstr("not a TrueType"));
    EXPECT_THAT(reasonOf(Signature + std::string(8, '\0')), HasSubstr("list of tables"));
    std::string beyond = fontFile(Signature);
    beyond[12 + 8] = '\xff';
    EXPECT_THAT(reasonOf(beyond), HasSubstr("beyond the end"));
    beyond = fontFile(Signature);
    beyond[12 + 16 + 12] = '\xff';
    EXPECT_THAT(reasonOf(beyond), HasSubstr("beyond the end"));
    EXPECT_THAT(reasonOf(fontCollection(0)), HasSubstr("list of fonts"));
    EXPECT_THAT(reasonOf(fontCollection(257)), HasSubstr("257 fonts"));
    std::string outside = fontCollection(2);
    outside[16] = '\x7f';
    EXPECT_THAT(reasonOf(outside), HasSubstr("not a TrueType"));
}

TEST(FontFileTest, truncatedAnywhere) {
    for(const std::string& good: {fontFile(Signature), fontCollection(2)})
        for(std::size_t size = 0; size != good.size(); ++size)
            EXPECT_FALSE(reasonOf(good.substr(0, size)).empty()) << size;
}

}
