#include "IncludeTable/SourceTree.h"

#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelTools;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

TEST(SourceTreeTest, findsIncludes) {
    const std::vector<IncludeLine> includes = includesOf(R"(#include "A.h"
  #  include <b/B.hpp> // why
// #include "commented.h"
/* #include "commented.h"
#include "commented.h" */ #include "C.h"
const char* text = "#include <text.h>";
#include "last.h")");
    ASSERT_EQ(includes.size(), 4);
    EXPECT_EQ(includes[0].header, "A.h");
    EXPECT_TRUE(includes[0].quoted);
    EXPECT_EQ(includes[1].header, "b/B.hpp");
    EXPECT_FALSE(includes[1].quoted);
    EXPECT_EQ(includes[1].line, 2);
    EXPECT_EQ(includes[2].header, "C.h");
    EXPECT_EQ(includes[2].line, 5);
    EXPECT_EQ(includes[3].line, 7);
}

TEST(SourceTreeTest, standardHeaders) {
    for(const char* header: {"vector", "cstddef", "type_traits"}) EXPECT_TRUE(isStandardHeader(header)) << header;
    for(const char* header: {"math.h", "sys/types", "imgui.h"}) EXPECT_FALSE(isStandardHeader(header)) << header;
}

struct ProjectTest: testing::Test {
    void SetUp() override {
        root = fs::path{testing::TempDir()} /
            (std::string{"include-table-"} + testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(root);
        fs::create_directories(root);
    }
    void TearDown() override { fs::remove_all(root); }

    void write(const char* file, const char* contents) const {
        fs::create_directories((root / file).parent_path());
        std::ofstream{root / file} << contents;
    }

    std::vector<std::string> check(const char* rows) const {
        const IncludeTable table = parseIncludeTable(std::string{"| Folder | May include |\n|-|-|\n"} + rows);
        EXPECT_THAT(table.errors, IsEmpty());
        return brokenIncludes(table, root);
    }

    fs::path root;
};

TEST_F(ProjectTest, namesFileLineFolderAndHeader) {
    write("module/Utils/A.h", "#pragma once\n");
    write("module/Shaders/B.cpp", "#include <vector>\n#include \"Utils/A.h\"\n#include <imgui.h>\n");
    EXPECT_THAT(check("| `module/Utils` | nothing |\n| `module/Shaders` | `module/Utils` |"),
        ElementsAre("module/Shaders/B.cpp:3: module/Shaders may not include imgui.h"));
    EXPECT_THAT(check("| `module/Utils` | nothing |\n| `module/Shaders` | `imgui.h` |"),
        ElementsAre("module/Shaders/B.cpp:2: module/Shaders may not include module/Utils/A.h"));
}

TEST_F(ProjectTest, findsHeadersBesideTheFileAndThroughDots) {
    write("module/Utils/A.h", "");
    write("module/Shaders/B.cpp", "#include \"../Utils/A.h\"\n");
    EXPECT_THAT(check("| `module/Utils` | nothing |\n| `module/Shaders` | nothing |"),
        ElementsAre("module/Shaders/B.cpp:1: module/Shaders may not include module/Utils/A.h"));
}

TEST_F(ProjectTest, everyFileNeedsARule) {
    write("engine/New/A.cpp", "");
    EXPECT_THAT(
        check("| `module` | nothing |"), ElementsAre("engine/New/A.cpp:1: no folder of the table holds this file"));
}

TEST_F(ProjectTest, testsMayIncludeAnythingAndNobodyIncludesThem) {
    write("module/Utils/Test/T.h", "");
    write("module/Utils/Test/T.cpp", "#include \"Utils/Test/T.h\"\n#include <gtest/gtest.h>\n");
    write("module/Utils/A.cpp", "#include \"Utils/Test/T.h\"\n");
    EXPECT_THAT(check("| `module/Utils` | nothing |"),
        ElementsAre("module/Utils/A.cpp:1: module/Utils may not include module/Utils/Test/T.h"));
}

TEST_F(ProjectTest, anEmbeddedLibraryCountsAsTheLibrary) {
    write("embedded/Corrade/src/Corrade/Tags.h", "");
    write("embedded/Magnum/src/Magnum/GL/Mesh.h", "#include \"Magnum/Magnum.h\"\n");
    write("embedded/Magnum/src/Magnum/Magnum.h", "#include \"Corrade/Tags.h\"\n");
    write("module/Utils/A.cpp", "#include <Corrade/Tags.h>\n#include <Magnum/Magnum.h>\n#include <Magnum/GL/Mesh.h>\n");
    EXPECT_THAT(check("| `module/Utils` | `Magnum/Magnum.h` |\n| `embedded/Corrade`, `embedded/Magnum` | nothing |"),
        ElementsAre("module/Utils/A.cpp:3: module/Utils may not include embedded/Magnum/src/Magnum/GL/Mesh.h"));
}

TEST_F(ProjectTest, anEmbeddedGizmoCountsAsTheLibrary) {
    write("embedded/ImGuizmo/src/ImGuizmo.h", "#include \"Implementation/Drag.h\"\n");
    write("embedded/ImGuizmo/src/Implementation/Drag.h", "");
    write("module/Views/A.cpp", "#include <ImGuizmo.h>\n#include <Implementation/Drag.h>\n");
    EXPECT_THAT(check("| `module/Views` | `ImGuizmo.h` |\n| `embedded/ImGuizmo` | nothing |"),
        ElementsAre("module/Views/A.cpp:2: module/Views may not include embedded/ImGuizmo/src/Implementation/Drag.h"));
    EXPECT_THAT(check("| `module/Views` | nothing |\n| `embedded/ImGuizmo` | nothing |"), testing::SizeIs(2));
}

TEST_F(ProjectTest, anEmbeddedLibraryIncludesNothingOfOurs) {
    write("module/Utils/A.h", "");
    write("embedded/Corrade/src/Corrade/Tags.h", "#include \"Utils/A.h\"\n");
    EXPECT_THAT(check("| `module/Utils` | nothing |\n| `embedded/Corrade` | nothing |"),
        ElementsAre("embedded/Corrade/src/Corrade/Tags.h:1: embedded/Corrade may not include module/Utils/A.h"));
}

}
