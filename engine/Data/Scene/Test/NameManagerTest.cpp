#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Vantrel/EngineData/NameManager.h>

namespace {

using testing::HasSubstr;
using testing::KilledBySignal;
using VantrelEngine::Id;
using VantrelEngine::NameManager;

TEST(NameManagerTest, whatHasNoNameIsEmpty) {
    NameManager names;
    EXPECT_EQ(names.size(), 0u);
    EXPECT_EQ(names.nameOf(0), "");
    EXPECT_EQ(names.nameOf(65535), "");
    EXPECT_EQ(names.nameOf(7).data()[0], '\0');
}

TEST(NameManagerTest, allocatesBytesForEachNameAdded) {
    NameManager names;
    names.allocate(11, 16);
    EXPECT_EQ(names.capacity(), 11u);
    EXPECT_EQ(names.textCapacity(), 176u);
    EXPECT_EQ(names.unusedTextCapacity(), 176u);
    EXPECT_EQ(names.size(), 0u);
    names.allocate(5, 16);
    EXPECT_EQ(names.textCapacity(), 176u);
    names.allocate(13, 37);
    EXPECT_EQ(names.capacity(), 13u);
    EXPECT_EQ(names.textCapacity(), 250u);
    names.setSize(13);
    names.setName(3, "camera");
    EXPECT_EQ(names.unusedTextCapacity(), 243u);
}

TEST(NameManagerTest, namesStayUntilTheyAreBlanked) {
    NameManager names;
    names.setSize(4);
    names.setName(1, "one");
    names.setName(3, "three");
    EXPECT_EQ(names.nameOf(1), "one");
    EXPECT_EQ(names.nameOf(2), "");
    names.setName(1, "another");
    EXPECT_EQ(names.nameOf(3), "three");
    names.setName(1, "");
    EXPECT_EQ(names.nameOf(1), "");
}

TEST(NameManagerTest, noNameIsLostWhereTheSizeIsTooSmall) {
    NameManager names;
    names.setSize(4);
    names.setName(9, "nine");
    EXPECT_EQ(names.size(), 10u);
    names.setSize(5);
    EXPECT_EQ(names.size(), 10u);
    EXPECT_EQ(names.nameOf(9), "nine");
    names.setName(9, "");
    names.setName(6, "six");
    names.setSize(5);
    EXPECT_EQ(names.size(), 7u);
    names.setName(6, "");
    names.setSize(5);
    EXPECT_EQ(names.size(), 5u);
    // Nothing to keep, nothing to make room for.
    names.setName(50, "");
    EXPECT_EQ(names.size(), 5u);
}

TEST(NameManagerTest, everyIdButNoneCanHaveAName) {
    NameManager names;
    for(std::size_t id = 0; id != 65535; ++id) names.setName(Id(id), std::to_string(id).data());
    for(std::size_t id = 0; id != 65535; ++id) ASSERT_EQ(names.nameOf(Id(id)), std::to_string(id).data());
}

TEST(NameManagerDeathTest, abortsOnTheIdOfNoObject) {
    NameManager names;
    EXPECT_EXIT(names.setName(65535, "x"), KilledBySignal(SIGABRT),
        HasSubstr("NameManager::setName(): there is no object 65535"));
}

}
