#include "Data/StepName.h"

#include "Data/Test/SessionFixture.h"

namespace {

using namespace VantrelEngine;

// Every edit is "POINTER = JSON", or "- POINTER" for a removal. With parents that are missing.
struct NamedStep {
    std::vector<const char*> edits;
    const char* name;
};

class StepNameTest: public VantrelTest::SessionFixture, public testing::WithParamInterface<NamedStep> {
protected:
    StepNameTest() {
        record("/objects/t",
            "{'name': 'Table', 'parent': '', 'translation': [0, 0, 0], 'rotation': [0, 0, 0, 1], 'scaling': "
            "[1, 1, 1], 'components': [{'type': 'mesh', 'mesh': {'mesh': 'm'}}, {'type': 'light', "
            "'light': {'color': [1, 1, 1]}}]}");
        record("/objects/l", object("t").replace(object("t").find("'N'"), 3, "'Lamp'"));
        record("/objects/unnamed", object().replace(object().find("'N'"), 3, "''"));
        record("/objects/a~1b", object().replace(object().find("'N'"), 3, "'Slash'"));
        record("/materials/b", "{'name': 'Bricks', 'pipeline': 'p', 'Lit': {'baseColor': [1, 0, 0]}}");
        record("/materials/w", "{'name': 'Wood', 'pipeline': 'p'}");
        record("/textures/x", "{'name': 'Grain'}");
    }
    std::string nameOf(const std::vector<const char*>& edits) {
        const std::int32_t first = changes().lastChange() + 1;
        changes().beginGroup();
        for(const std::string edit: edits) {
            const std::size_t equals = edit.find(" = ");
            if(equals == edit.npos)
                remove(edit.substr(2));
            else
                record(edit.substr(0, equals), edit.substr(equals + 3));
        }
        changes().commit();
        return stepName(changes().changes().exceptPrefix(std::size_t(first)), session.data().project());
    }
};

TEST_P(StepNameTest, IsWhatAPersonWouldSay) { EXPECT_EQ(nameOf(GetParam().edits), GetParam().name); }

INSTANTIATE_TEST_SUITE_P(Objects, StepNameTest,
    testing::Values(NamedStep{{"/objects/new = {'name': 'Chair'}"}, "Add Chair"},
        NamedStep{{"/objects/new = {}"}, "Add new"},
        NamedStep{{"/objects/new = {'name': 'Chair'}", "/objects/newer = {'name': 'Stool'}"}, "Add 2 objects"},
        NamedStep{{"/meshes/seat = {'name': 'Seat'}", "/objects/new = {'name': 'Chair'}"}, "Add Chair"},
        NamedStep{{"- /objects/t"}, "Delete Table"}, NamedStep{{"- /objects/unnamed"}, "Delete unnamed"},
        NamedStep{{"- /objects/l", "- /objects/t", "- /objects/unnamed"}, "Delete 3 objects"},
        NamedStep{{"/objects/t/translation = [1, 0, 0]"}, "Move Table"},
        NamedStep{{"/objects/t/translation = [1, 0, 0]", "/objects/t/rotation = [0, 0, 0, -1]",
                      "/objects/t/scaling = [1.00001, 1, 1]"},
            "Move Table"},
        NamedStep{{"/objects/t/translation = [1, 0, 0]", "/objects/t/rotation = [0, 1, 0, 0]",
                      "/objects/t/scaling = [1, 1, 1]"},
            "Rotate Table"},
        NamedStep{{"/objects/t/translation = [0, 0, 0]", "/objects/t/scaling = [1, 2, 1]"}, "Scale Table"},
        NamedStep{{"/objects/t/scaling = [1, 2, 1]", "/objects/t/rotation = [0, 1, 0, 0]"}, "Transform Table"},
        NamedStep{{"/objects/t/translation = [1, 0, 0]", "/objects/l/translation = [1, 0, 0]"}, "Move 2 objects"},
        NamedStep{{"/objects/a~1b/translation = [1, 0, 0]"}, "Move Slash"},
        NamedStep{{"/objects/l/parent = ''", "/objects/l/translation = [1, 0, 0]"}, "Move Lamp to the top level"},
        NamedStep{{"/objects/unnamed/parent = 't'"}, "Move unnamed below Table"},
        NamedStep{{"/objects/unnamed/parent = 't'", "/objects/a~1b/parent = 't'"}, "Move 2 objects below Table"},
        NamedStep{{"/objects/unnamed/parent = 't'", "/objects/a~1b/parent = 'l'"}, "Move 2 objects below others"},
        NamedStep{{"/objects/t/name = 'Desk'"}, "Rename Table to Desk"},
        NamedStep{{"/objects/t/name = 'a long name of an object that nobody would read to its end'"},
            "Rename Table to a long name of an object that nobody would read ..."},
        NamedStep{{"/objects/unnamed/name = 'Two\\nlines'"}, "Rename unnamed to Two lines"},
        NamedStep{{"/objects/t/name = 'Desk'", "/objects/l/name = 'Light'"}, "Rename 2 objects"},
        NamedStep{{"/objects/t/skin = 's'"}, "Change skin of Table"},
        NamedStep{{"/objects/t = {'name': 'Other'}"}, "Change Table"}));

INSTANTIATE_TEST_SUITE_P(Components, StepNameTest,
    testing::Values(NamedStep{{"/objects/l/components/0 = {'type': 'light'}"}, "Add light to Lamp"},
        NamedStep{{"/objects/t/components/2 = {'type': 'physx'}"}, "Add physx to Table"},
        NamedStep{{"/objects/l/components/0 = {'type': 'light'}", "/objects/t/components/2 = {'type': 'light'}"},
            "Add light to 2 objects"},
        NamedStep{{"/objects/l/components/0 = {'type': 'light'}", "/objects/t/components/2 = {'type': 'text'}"},
            "Add components to 2 objects"},
        NamedStep{{"- /objects/t/components/1"}, "Remove light from Table"},
        NamedStep{{"/objects/t/components = []"}, "Remove components from Table"},
        NamedStep{{"/objects/t/components/1/light/color = [1, 0, 0]"}, "Change colour of Table"},
        NamedStep{{"/objects/t/components/1/light/color/0 = 0.5"}, "Change colour of Table"},
        NamedStep{{"/objects/t/components/1/light/outerAngle = 20"}, "Change outer angle of Table"},
        NamedStep{{"/objects/t/components/0/mesh/material = 'b'"}, "Change material of Table"},
        NamedStep{{"/objects/t/components/1/active = false"}, "Switch off light of Table"},
        NamedStep{{"/objects/t/components/1/active = true"}, "Switch on light of Table"}));

INSTANTIATE_TEST_SUITE_P(Resources, StepNameTest,
    testing::Values(NamedStep{{"/materials/b/Lit/baseColor = [0, 1, 0]"}, "Change base colour of Bricks"},
        NamedStep{{"/materials/w/Lit/baseColor = [0, 1, 0]"}, "Change base colour of Wood"},
        NamedStep{
            {"/images/i = {'name': 'Wall'}", "/textures/y = {'image': 'i'}", "/materials/b/Lit/colorTexture = 'y'"},
            "Change colour texture of Bricks"},
        NamedStep{{"/materials/b/pipeline = 'q'", "/materials/w/pipeline = 'q'"}, "Change pipeline of 2 materials"},
        NamedStep{{"/materials/b/pipeline = 'q'", "/materials/b/Lit/baseColor = [0, 1, 0]"}, "Change Bricks"},
        NamedStep{{"/materials/b/pipeline = 'q'", "/textures/x/image = 'i'"}, "Change 2 things"},
        NamedStep{{"/materials/b/name = 'Wall'"}, "Rename Bricks to Wall"},
        NamedStep{{"/materials/new = {'name': 'Slate'}"}, "Add material Slate"},
        NamedStep{{"/skins/first = {'name': 'Bones'}"}, "Add skin Bones"},
        NamedStep{{"/meshes/new = {'name': 'Seat'}"}, "Add mesh Seat"},
        NamedStep{{"/images/i = {}", "/textures/y = {}"}, "Add 2 resources"},
        NamedStep{{"- /textures/x"}, "Delete texture Grain"},
        NamedStep{{"- /materials/b", "- /materials/w"}, "Delete 2 materials"}));

INSTANTIATE_TEST_SUITE_P(Settings, StepNameTest,
    testing::Values(NamedStep{{"/settings/rendering/bloom/intensity = 2"}, "Set bloom intensity"},
        NamedStep{{"/settings/rendering/clearColor = [0, 0, 0, 1]"}, "Set clear colour"},
        NamedStep{{"/settings/rendering/useMultiDraw = true"}, "Set multi draw"},
        NamedStep{{"/settings/editor/camera/near = 1"}, "Set camera near"},
        NamedStep{{"/settings/rendering/usePreZ = true", "/settings/rendering/hdr/exposure = 2"}, "Change settings"},
        NamedStep{{"/author/name = 'Nobody'"}, "Change author name"}));

TEST_F(StepNameTest, AreDerivedOfNothing) { EXPECT_EQ(stepName({}, session.data().project()), "Change project"); }

} // namespace
