#include <functional>
#include <random>

#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Matrix4.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <imgui.h>

#include "Support/JsonText.h"
#include "Views/Test/SceneViewFixture.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::HasSubstr;
using testing::StartsWith;
using VantrelTest::jsonText;
using VantrelTest::pixelOf;

// Three cubes side by side, of a red material; a blue one and textures to be dropped.
class DropViewTest: public VantrelTest::SceneViewFixture {
protected:
    DropViewTest() {
        for(const char* const id: {"red", "blue"})
            record(("/materials/" + std::string{id}).c_str(),
                "{'name': 'M', 'pipeline': 'flat', 'Flat': {'color': [1, 1, 1, 1]}}");
        record("/textures/wood", "{'name': 'Wood', 'image': ''}");
        add("left", "[-1.6, 0, 1.6]");
        add("middle", "[0, 0, 0]");
        add("right", "[1.6, 0, -1.6]");
        addPointLight("lamp", "[0, 2.2, 0]");
        // Something to be redone, which a preview must not cost.
        record("/settings/other", "1");
        host.session.changes().undoLast();
        host.drawOthers = [this] { drawSource(); };
        host.frame();
        Scene& scene = data().scene().main();
        for(const char* const id: {"left", "middle", "right", "lamp"}) EXPECT_TRUE(scene.isValid(objectOf(id)));
    }
    void add(const std::string& id, const std::string& place) {
        addObject(id, place, "{'type': 'mesh', 'active': true, 'mesh': {'mesh': 'cube', 'material': 'red'}}");
    }

    // The source of what is dragged, for as long as the button is held.
    void drawSource() {
        constexpr ImGuiDragDropFlags flags =
            ImGuiDragDropFlags_SourceExtern | ImGuiDragDropFlags_SourceNoPreviewTooltip;
        if(!ImGui::IsMouseDown(0) || type.empty() || !ImGui::BeginDragDropSource(flags)) return;
        ImGui::SetDragDropPayload(type.data(), bytes.data(), bytes.size());
        ImGui::EndDragDropSource();
    }
    void take(const char* newType, const std::string& text) {
        type = newType;
        bytes = text + '\0';
        ImGui::GetIO().MouseDown[0] = true;
    }
    void drop() {
        ImGui::GetIO().MouseDown[0] = false;
        host.frame();
        host.frame();
    }
    std::string materialOf(const std::string& id) {
        const JsonValue* const value =
            data().project().valueByPointer(("/objects/" + id + "/components/0/mesh/material").c_str());
        return value ? value->GetString() : "none";
    }
    std::string materials() { return materialOf("left") + ' ' + materialOf("middle") + ' ' + materialOf("right"); }
    std::string document() { return jsonText(data().project().projectFile()); }
    // Document and log, whole, as a number.
    std::size_t state() {
        const ChangeManager& changes = host.session.changes();
        std::string text = document() + std::to_string(changes.lastChange());
        for(const Change& change: changes.changes())
            text += std::string{change.path.data()} + std::to_string(change.group);
        return std::hash<std::string>{}(text);
    }
    template<class Function> std::string errors(Function&& function) {
        Containers::String out, rest;
        {
            Utility::Debug silenced{&rest};
            Utility::Error redirected{&out};
            function();
        }
        return {out.data(), out.size()};
    }

    static constexpr Vector2i Left{70, 138}, Middle{160, 138}, Right{250, 138}, Nothing{30, 60}, Outside{160, 2};

    std::string type, bytes;
};

TEST_F(DropViewTest, aMaterialIsSeenWhereTheMouseIsAndKeptWhereItIsDropped) {
    const std::string before = document();
    const std::int32_t last = host.session.changes().lastChange();
    take("DND_MATERIAL", "blue");
    hover(Left);
    EXPECT_EQ(materials(), "blue red red");
    hover(Middle);
    EXPECT_EQ(materials(), "red blue red");
    hover(Right);
    EXPECT_EQ(materials(), "red red blue");
    EXPECT_EQ(host.session.changes().trial(), Trial::Preview);
    drop();
    EXPECT_EQ(materials(), "red red blue");
    EXPECT_EQ(host.session.changes().trial(), Trial::None);
    EXPECT_EQ(host.session.changes().lastChange(), last + 1);
    EXPECT_FALSE(host.session.changes().canRedo());
    host.session.changes().undoLast();
    EXPECT_TRUE(document() == before);
}

TEST_F(DropViewTest, whatIsNotKeptNeverWas) {
    const std::size_t before = state();
    take("DND_MATERIAL", "blue");
    for(const Vector2i& end: {Nothing, Outside}) {
        hover(Middle);
        EXPECT_EQ(materials(), "red blue red");
        hover(end);
        EXPECT_EQ(state(), before);
        EXPECT_TRUE(host.session.changes().canRedo());
    }
    drop();
    EXPECT_EQ(state(), before);
    // A drag that ends between two frames of the view.
    take("DND_MATERIAL", "blue");
    hover(Middle);
    type.clear();
    ImGui::GetIO().MousePos = {-1000.0f, -1000.0f};
    drop();
    EXPECT_EQ(state(), before);
}

// One line each time that the mouse comes there, and none for each frame. What is drawn is as it was before.
TEST_F(DropViewTest, aMalformedMeshIsAskedOnce) {
    data().project().valueByPointer("/objects/middle/components/0/mesh")->SetInt(5);
    const std::size_t before = state();
    const std::string line = "Cannot set material on object without mesh component!\n";
    take("DND_MATERIAL", "blue");
    EXPECT_EQ(errors([&] {
        for(int i = 0; i != 5; ++i) hover(Middle + Vector2i{i, 0});
    }),
        line);
    EXPECT_EQ(state(), before);
    EXPECT_EQ(errors([&] { hover(Left); }), line);
    EXPECT_EQ(materialOf("left"), "blue");
    EXPECT_EQ(errors([&] {
        for(int i = 0; i != 5; ++i) hover(Middle);
        drop();
    }),
        line);
    EXPECT_EQ(state(), before);
    // The next drag is another one.
    take("DND_MATERIAL", "blue");
    EXPECT_EQ(errors([&] { hover(Middle); }), line);
}

TEST_F(DropViewTest, droppedInTheFrameInWhichItCameItIsKept) {
    take("DND_MATERIAL", "blue");
    hover(Left);
    ImGui::GetIO().MousePos = {Float(Right.x()), Float(Right.y())};
    drop();
    EXPECT_EQ(materials(), "red red blue");
    host.session.changes().undoLast();
    EXPECT_EQ(materials(), "red red red");
}

TEST_F(DropViewTest, theNextFrameShowsIt) {
    record("/materials/blue/Flat/color", "[0, 0, 1, 1]");
    hover(Nothing);
    const Color4ub before = pixelOf(host.picture(), {160, 102});
    take("DND_MATERIAL", "blue");
    host.frame();
    ImGui::GetIO().MousePos = {Float(Middle.x()), Float(Middle.y())};
    host.frame();
    EXPECT_TRUE(host.state.wantsFrame);
    host.frame();
    EXPECT_NE(pixelOf(host.picture(), {160, 102}), before);
    EXPECT_EQ(pixelOf(host.picture(), {160, 102}), (Color4ub{0, 0, 255, 255}));
}

TEST_F(DropViewTest, withoutAMeshNothingHappens) {
    // Where the toolbar is not.
    record("/objects/lamp/translation", "[1.4, -0.6, 1.4]");
    hover(Nothing);
    // Where the lamp's marker is.
    Vector2i lamp{-1};
    const Image2D ids = host.objectIds();
    const auto pixels = ids.pixels<Color4ub>();
    for(Int y = 0; y != ids.size().y(); ++y)
        for(Int x = 0; x != ids.size().x(); ++x)
            if(pixels[std::size_t(y)][std::size_t(x)].r() == objectOf("lamp")) lamp = {x, ids.size().y() - 1 - y};
    ASSERT_GE(lamp.x(), 0);
    const Vector2i offset{Vector2{host.state.viewPointer.rectangle.min()}};
    const std::size_t before = state();
    hover(lamp + offset);
    press(MouseButton::Left);
    ASSERT_TRUE(data().isSelected(objectOf("lamp"))) << "the mouse is over it";
    EXPECT_EQ(errors([&] {
        take("DND_MATERIAL", "blue");
        hover(lamp + offset);
        drop();
    }),
        "");
    EXPECT_EQ(state(), before);
}

TEST_F(DropViewTest, whateverElseIsDoneEndsAPreview) {
    const std::size_t before = state();
    take("DND_MATERIAL", "blue");
    hover(Middle);
    host.session.changes().undoLast();
    EXPECT_EQ(state(), before);
    // It begins anew, and can still be taken back.
    host.frame();
    EXPECT_EQ(materials(), "red blue red");
    hover(Nothing);
    EXPECT_EQ(state(), before);
    hover(Middle);
    EXPECT_EQ(materials(), "red blue red");
    host.reloadView();
    EXPECT_EQ(state(), before);
    hover(Middle);
    EXPECT_EQ(materials(), "red blue red");
    host.state.views.isViewOpen(0) = false;
    host.frame();
    EXPECT_EQ(state(), before);
}

TEST_F(DropViewTest, nothingIsChangedWhileTheProjectIsLocked) {
    const std::size_t before = state();
    host.state.isLocked = true;
    take("DND_MATERIAL", "blue");
    hover(Middle);
    EXPECT_EQ(state(), before);
    host.state.isLocked = false;
    host.frame();
    EXPECT_EQ(materials(), "red blue red");
}

TEST_F(DropViewTest, aTextureGoesIntoTheMaterial) {
    record("/shaders/painted",
        "{'name': 'Painted', 'stage': 'mesh', 'variant': 1, 'vertex': 'Dynamic.vert',"
        "'fragment': 'Flat.frag', 'parameters': [{'name': 'paint', 'type': 'texture'}]}");
    record("/pipelines/painted", "{'name': 'Painted', 'shader': 'painted'}");
    record("/materials/painted", "{'name': 'Painted', 'pipeline': 'painted'}");
    record("/objects/left/components/0/mesh/material", "'painted'");
    record("/materials/lines", "{'name': 'Lines', 'pipeline': 'meshVisualizer'}");
    record("/objects/middle/components/0/mesh/material", "'lines'");
    host.frame();
    const std::string before = document();
    take("DND_TEXTURE", "wood");
    hover(Left);
    EXPECT_EQ(data().project().valueByPointer("/materials/painted/Painted/paint")->GetString(), std::string{"wood"});
    // Its pipeline has no textures.
    hover(Middle);
    EXPECT_TRUE(document() == before);
    EXPECT_EQ(host.session.changes().trial(), Trial::None);
    hover(Left);
    drop();
    EXPECT_FALSE(document() == before);
    host.session.changes().undoLast();
    EXPECT_TRUE(document() == before);
}

TEST_F(DropViewTest, whatCannotBeUsedGivesOneLine) {
    const std::size_t before = state();
    const auto drag = [&](const char* newType, std::string newBytes) {
        return errors([&] {
            take(newType, "");
            bytes = std::move(newBytes);
            hover(Middle);
            hover(Left);
            hover(Middle);
            drop();
            host.frame();
        });
    };
    constexpr const char* Unusable = "What was dragged here cannot be used: ";
    for(const char* const kind: {"DND_MATERIAL", "DND_TEXTURE", "DND_ASSET_CELL"}) {
        SCOPED_TRACE(kind);
        EXPECT_EQ(drag(kind, "blue"), Unusable + std::string{"it has no end\n"});
        EXPECT_EQ(drag(kind, std::string{"\0", 1}), Unusable + std::string{"it is empty\n"});
        EXPECT_EQ(drag(kind, std::string{"bl\0ue\0", 6}), Unusable + std::string{"it has a zero byte inside\n"});
        EXPECT_EQ(drag(kind, std::string(1 << 20, '\xff') + '\0'), Unusable + std::string{"it is too long\n"});
    }
    EXPECT_EQ(drag("DND_MATERIAL", std::string{"nobody\0", 7}), "There is no material \"nobody\"\n");
    EXPECT_EQ(drag("DND_TEXTURE", std::string{"nobody\0", 7}), "There is no texture \"nobody\"\n");
    // Nobody imports anything here.
    EXPECT_EQ(drag("DND_ASSET_CELL", std::string{"a.glb\0", 6}), "a.glb: nothing can be imported here\n");
    EXPECT_EQ(drag("DND_MESH", std::string{"cube\0", 5}), "");
    EXPECT_EQ(state(), before);
}

TEST_F(DropViewTest, randomBytesChangeNothing) {
    const std::size_t before = state();
    std::mt19937 random{1};
    const char* const kinds[]{"DND_MATERIAL", "DND_TEXTURE", "DND_ASSET_CELL"};
    for(int i = 0; i != 60; ++i) {
        SCOPED_TRACE(i);
        std::string text(random() % 40, '\0');
        // Near to what is there, now and then.
        if(random() % 3 == 0) text = "blue";
        for(char& c: text)
            if(text != "blue" || random() % 4 == 0) c = char(random());
        if(text == "blue") text += 'x';
        take(kinds[random() % 3], "");
        bytes = random() % 2 ? text + '\0' : text;
        errors([&] {
            ImGui::GetIO().MousePos = {Float(Middle.x()), Float(Middle.y())};
            host.frame();
            drop();
        });
        ASSERT_EQ(state(), before);
    }
}

TEST_F(DropViewTest, tellsWhereTheMouseIsAndWhereAFileWouldStand) {
    hover(Middle);
    const ViewPointer& pointer = host.state.viewPointer;
    EXPECT_FALSE(pointer.place);
    EXPECT_NEAR(pointer.rayDirection.length(), 1.0f, 1.0e-5f);
    EXPECT_LT((pointer.rayOrigin - Vector3{3.0f}).length(), 1.0e-4f);
    take("DND_ASSET_CELL", "/a.glb");
    hover(Middle);
    ASSERT_TRUE(pointer.place);
    // On the surface of the cube in the middle, and below the mouse.
    EXPECT_NEAR(Math::abs(*pointer.place).max(), 1.0f, 0.01f);
    const Vector3 clip = (pointer.projection * pointer.view).transformPoint(*pointer.place);
    const Vector2 seen =
        pointer.rectangle.min() + (Vector2{clip.x(), -clip.y()} + Vector2{1.0f}) * 0.5f * pointer.rectangle.size();
    EXPECT_LT((seen - Vector2{Middle} - Vector2{0.5f}).length(), 0.75f);
    // The ground, where nothing is drawn.
    hover({160, 225});
    ASSERT_TRUE(pointer.place);
    EXPECT_NEAR(pointer.place->y(), 0.0f, 1.0e-4f);
    hover(Outside);
    EXPECT_FALSE(pointer.place);
    // A picture stands nowhere.
    take("DND_ASSET_CELL", "/a.png");
    hover({160, 225});
    EXPECT_FALSE(pointer.place);
}

}
