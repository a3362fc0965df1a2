#include <Vantrel/EditorData/EditorData.h>
#include <gtest/gtest.h>

#include "Panels/Log.h"
#include "Panels/ObjectList.h"

namespace VantrelEngine {

namespace {

TEST(ObjectClickTest, SelectsOneOrTogglesItsOwn) {
    EditorData data;
    const Id first = data.scene().main().addObject(RootObject), second = data.scene().main().addObject(RootObject);
    applyClick(data, {first, false});
    EXPECT_TRUE(data.isSelected(first));
    applyClick(data, {second, true});
    EXPECT_TRUE(data.isSelected(first) && data.isSelected(second));
    applyClick(data, {first, true});
    EXPECT_FALSE(data.isSelected(first));
    applyClick(data, {first, false});
    EXPECT_TRUE(data.isSelected(first));
    EXPECT_FALSE(data.isSelected(second));
    applyClick(data, {first, false});
    EXPECT_TRUE(data.isSelected(first)) << "a plain click never takes out";
}

TEST(LogTest, KeepsTheLastLines) {
    Log log;
    for(std::size_t i = 0; i != Log::MaxLogLines + 5; ++i) log.add(Severity::Warning, std::to_string(i));
    ASSERT_EQ(log.lines().size(), Log::MaxLogLines);
    EXPECT_EQ(log.lines().front().text, "5");
    EXPECT_EQ(log.lines().back().text, std::to_string(Log::MaxLogLines + 4));
    log.clear();
    EXPECT_TRUE(log.lines().empty());
}

} // namespace

} // namespace VantrelEngine
