#include "IncludeTable/IncludeTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelTools;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Page = R"(# Page

| Name | Headers |
|---|---|
| Magnum math | `Magnum/Math/`, `Magnum/Magnum.h` |
| UI | `imgui.h`, Magnum math |

| Folder | May include |
|---|:--|
| `module/Utils` | Magnum math |
| `module/Views/SceneView` | `module/Utils` |
| `module/Views/SceneView/*` | `module/Utils/Assert.h`, `module/Views/SceneView`, UI |
| `module/Views` | `module/Views/SceneView/*` |
| `engine/Data`, `engine/Physics` | nothing |
| `tests/` | anything |

| Other | Table |
|---|---|
| `ignored` | whatever |
)";

TEST(IncludeTableTest, parsesNamesAndRules) {
    const IncludeTable table = parseIncludeTable(Page);
    EXPECT_THAT(table.errors, IsEmpty());
    ASSERT_EQ(table.rules.size(), 7);
    EXPECT_EQ(table.rules[0].folder, "module/Utils");
    EXPECT_THAT(table.rules[0].prefixes, ElementsAre("Magnum/Math/", "Magnum/Magnum.h"));
    EXPECT_THAT(table.rules[2].prefixes,
        ElementsAre("module/Utils/Assert.h", "module/Views/SceneView", "imgui.h", "Magnum/Math/", "Magnum/Magnum.h"));
    EXPECT_EQ(table.rules[4].folder, "engine/Data");
    EXPECT_EQ(table.rules[5].folder, "engine/Physics");
    EXPECT_THAT(table.rules[5].prefixes, IsEmpty());
    EXPECT_FALSE(table.rules[5].anything);
    EXPECT_EQ(table.rules[6].folder, "tests");
    EXPECT_TRUE(table.rules[6].anything);
}

TEST(IncludeTableTest, reportsWhatItDoesNotUnderstand) {
    EXPECT_THAT(parseIncludeTable("| Folder | May include |\n|-|-|\n| `a` | Magnum |\n| b | nothing |").errors,
        ElementsAre("line 3: unknown name 'Magnum'", "line 4: folder 'b' is not in back quotes"));
    EXPECT_THAT(parseIncludeTable("text").errors, ElementsAre("line 1: no table of folders"));
}

struct {
    const char *file, *header;
    bool isOwn, allowed;
} const Data[]{
    {"module/Utils/Assert.cpp", "module/Utils/Assert.h", true, true},
    {"module/Utils/Assert.cpp", "Magnum/Math/Vector3.h", false, true},
    {"module/Utils/Assert.cpp", "Magnum/Magnum.h", false, true},
    {"module/Utils/Assert.cpp", "Magnum/Magnum.hpp", false, false},
    {"module/Utils/Assert.cpp", "Magnum/GL/Mesh.h", false, false},
    {"module/Utils/Assert.cpp", "imgui.h", false, false},
    // A room: its own folder, the hall, but no other room.
    {"module/Views/SceneView/Camera/A.cpp", "module/Views/SceneView/Camera/B.h", true, true},
    {"module/Views/SceneView/Camera/A.cpp", "module/Views/SceneView/ViewFrame.h", true, true},
    {"module/Views/SceneView/Camera/A.cpp", "module/Views/SceneView/Gizmo/B.h", true, false},
    {"module/Views/SceneView/Camera/A.cpp", "module/Utils/Assert.h", true, true},
    {"module/Views/SceneView/Camera/A.cpp", "module/Utils/StaticMap.h", true, false},
    {"module/Views/SceneView/Camera/A.cpp", "imgui.h", false, true},
    // The hall: no room.
    {"module/Views/SceneView/ViewFrame.cpp", "module/Views/SceneView/Gizmo/B.h", true, false},
    {"module/Views/SceneView/ViewFrame.cpp", "module/Views/SceneView/PixelRect.h", true, true},
    // Who wires them together: all rooms, not the hall.
    {"module/Views/View.cpp", "module/Views/SceneView/Gizmo/B.h", true, true},
    {"module/Views/View.cpp", "module/Views/SceneView/ViewFrame.h", true, false},
    // A name that merely begins alike is another folder.
    {"module/Views/SceneView/ViewFrame.cpp", "module/UtilsOfOthers/A.h", true, false},
    {"engine/Physics/A.cpp", "engine/Data/B.h", true, false},
    {"tests/Abi/A.cpp", "engine/Data/B.h", true, true},
    {"tests/Abi/A.cpp", "anything.h", false, true},
    {"nowhere/A.cpp", "nowhere/A.h", true, false},
};

TEST(IncludeTableTest, mayInclude) {
    const IncludeTable table = parseIncludeTable(Page);
    for(const auto& data: Data)
        EXPECT_EQ(mayInclude(table, data.file, data.header, data.isOwn), data.allowed)
            << data.file << " " << data.header;
}

}
