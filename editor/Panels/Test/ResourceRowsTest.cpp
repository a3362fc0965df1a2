#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../../Data/Test/SessionFixture.h"
#include "Panels/Resources/ResourceRows.h"
#include "Utilities/ResourceEdits.h"

namespace {

using namespace VantrelEngine;
using testing::ElementsAre;
using testing::IsEmpty;

class ResourceTest: public VantrelTest::SessionFixture {
protected:
    ResourceTest() {
        record("/materials", "{}");
        record("/materials/red", "{'name': 'Red Paint', 'pipeline': 'lit'}");
        record("/materials/blue", "{'name': 'Blue', 'pipeline': 'lit'}");
        record("/materials/plain", "{'pipeline': 'lit'}");
        record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}");
        record("/objects/a",
            object("", ", 'components': [{'type': 'mesh', 'mesh': {'mesh': 'cube', 'material': 'red'}}]"));
        session.update();
        before = document();
        last = changes().lastChange();
    }
    const ProjectFile& project() { return session.data().project(); }
    std::string nameOf(const char* section, const char* id) {
        const JsonValue* const value = project().member(section, id);
        return value ? (*value)["name"].GetString() : "none";
    }

    std::string before;
    std::int32_t last = 0;
};

TEST_F(ResourceTest, areListedByPosition) {
    const std::size_t count = resourceCount(project(), "materials");
    ASSERT_GE(count, 3u);
    EXPECT_EQ(resourceAt(project(), "materials", count - 3).id, "red");
    EXPECT_EQ(resourceAt(project(), "materials", count - 3).name, "Red Paint");
    EXPECT_EQ(resourceAt(project(), "materials", count - 1).name, "plain");
    EXPECT_EQ(resourceCount(project(), "fonts"), 0u);
    EXPECT_THAT(searchResources(project(), "materials", "paint"), ElementsAre(count - 3));
    EXPECT_THAT(searchResources(project(), "materials", "BLUE"), ElementsAre(count - 2));
    EXPECT_THAT(searchResources(project(), "fonts", "a"), IsEmpty());
    record("/textures/t", "{'name': 'T', 'image': 'i'}");
    EXPECT_EQ(imageOfTexture(project(), "t"), "i");
    EXPECT_EQ(imageOfTexture(project(), "nobody"), "");
}

TEST_F(ResourceTest, usersAreCounted) {
    EXPECT_EQ(usersOf("materials", "red", session), 1u);
    EXPECT_EQ(usersOf("materials", "blue", session), 0u);
    EXPECT_EQ(usersOf("materials", "nobody", session), 0u);
    EXPECT_EQ(usersOf("settings", "red", session), 0u);
}

TEST_F(ResourceTest, renamingIsAStep) {
    renameResource("materials", "red", "Crimson", session);
    EXPECT_EQ(nameOf("materials", "red"), "Crimson");
    changes().undoLast();
    EXPECT_EQ(document(), before);
    renameResource("materials", "red", "Red Paint", session);
    renameResource("materials", "nobody", "Anybody", session);
    renameResource("shaders", "lit", "Other", session);
    EXPECT_EQ(changes().lastChange(), last);
}

TEST_F(ResourceTest, aCopyHasAnIdAndANameOfItsOwn) {
    EXPECT_EQ(duplicateResource("materials", "red", session), "red-paint");
    EXPECT_EQ(nameOf("materials", "red-paint"), "Red Paint 2");
    EXPECT_EQ(duplicateResource("materials", "red", session), "red-paint-2");
    EXPECT_EQ(nameOf("materials", "red-paint-2"), "Red Paint 3");
    EXPECT_EQ((*project().member("materials", "red-paint"))["pipeline"], "lit");
    changes().undoLast();
    changes().undoLast();
    EXPECT_EQ(document(), before);
    EXPECT_EQ(duplicateResource("materials", "nobody", session), "");
    EXPECT_EQ(changes().lastChange(), last);
}

TEST_F(ResourceTest, onlyWhatIsNotUsedIsDeleted) {
    EXPECT_EQ(deleteResource("materials", "red", session), "It is used once");
    EXPECT_EQ(deleteResource("materials", "nobody", session), "");
    EXPECT_EQ(changes().lastChange(), last);
    // Not compiled, but named.
    record("/objects/b", "{'components': [{'type': 'physx', 'physx': {'convexMesh': {'mesh': 'plain'}}}]}");
    EXPECT_EQ(deleteResource("materials", "plain", session), "Something in the project names it");
    changes().undoLast();
    EXPECT_EQ(deleteResource("materials", "plain", session), "");
    EXPECT_FALSE(project().member("materials", "plain"));
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

}
