#include "Utils/StaticMap.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Corrade;
using namespace Containers::Literals;
using testing::Eq;
using testing::KilledBySignal;
using VantrelEngine::StaticMap;

TEST(StaticMapTest, findsEveryKeyAndNothingElse) {
    StaticMap<int> map;
    // Not in order, with prefixes, the empty key, and bytes above 127, which sort after all ASCII.
    const char* keys[]{"objects", "object", "settings", "", "a", "translation", "\xc3\xa9", "B"};
    int value = 0;
    for(const char* key: keys) map[key] = ++value;
    map.compile();

    value = 0;
    for(const char* key: keys) {
        ASSERT_TRUE(map.find(key)) << key;
        EXPECT_EQ(*map.find(key), ++value) << key;
    }
    for(const char* absent: {"objec", "objectsx", "b", "Z", "zzz", "\xff"}) EXPECT_FALSE(map.find(absent)) << absent;
}

TEST(StaticMapTest, findsAmongAnyNumberOfKeys) {
    for(std::size_t count = 0; count != 40; ++count) {
        StaticMap<std::size_t> map;
        for(std::size_t i = count; i != 0; --i) map[std::to_string(1000 + 2 * i).data()] = i;
        map.compile();
        EXPECT_EQ(map.size(), count);
        for(std::size_t i = 1; i <= count; ++i) {
            ASSERT_TRUE(map.find(std::to_string(1000 + 2 * i).data())) << count << " " << i;
            EXPECT_EQ(*map.find(std::to_string(1000 + 2 * i).data()), i);
            EXPECT_FALSE(map.find(std::to_string(1001 + 2 * i).data()));
        }
    }
}

TEST(StaticMapTest, aKeyNamedAgainIsTheSameEntry) {
    StaticMap<Containers::Array<int>> map;
    arrayAppend(map["components"], 1);
    arrayAppend(map["name"], 2);
    arrayAppend(map["components"], 3);
    map.compile();
    ASSERT_EQ(map.size(), 2);
    const Containers::Array<int>* list = map.find("components");
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 2);
    EXPECT_EQ((*list)[0], 1);
    EXPECT_EQ((*list)[1], 3);
}

TEST(StaticMapTest, keysAreCopied) {
    StaticMap<int> map;
    {
        std::string key = "temporary key that is too long to be stored in place";
        map[key.data()] = 5;
        key.assign(key.size(), 'x');
    }
    map.compile();
    EXPECT_TRUE(map.find("temporary key that is too long to be stored in place"));
}

TEST(StaticMapTest, keysMayHoldAnyByte) {
    StaticMap<int> map;
    map["a\0b"_s] = 1;
    map["a"_s] = 2;
    map.compile();
    EXPECT_EQ(*map.find("a\0b"_s), 1);
    EXPECT_EQ(*map.find("a"_s), 2);
}

TEST(StaticMapTest, anEmptyMapCompilesAndFindsNothing) {
    StaticMap<int> map;
    EXPECT_FALSE(map.isCompiled());
    map.compile();
    EXPECT_TRUE(map.isCompiled());
    EXPECT_FALSE(map.find(""));
}

TEST(StaticMapTest, onlyANewKeyMakesTheMapUncompiled) {
    StaticMap<int> map;
    map["a"] = 1;
    map.compile();
    map["a"] = 2;
    EXPECT_TRUE(map.isCompiled());
    EXPECT_EQ(*map.find("a"), 2);
    map["b"] = 3;
    EXPECT_FALSE(map.isCompiled());
}

TEST(StaticMapDeathTest, findBeforeCompileAborts) {
    StaticMap<int> map;
    map["a"] = 1;
    EXPECT_EXIT(map.find("a"), KilledBySignal(SIGABRT), Eq("StaticMap::find(): Map needs to be compiled.\n"));
    const StaticMap<int> empty;
    EXPECT_EXIT(empty.find("a"), KilledBySignal(SIGABRT), Eq("StaticMap::find(): Map needs to be compiled.\n"));
}

}
