#include <algorithm>
#include <cmath>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Color.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <imgui.h>
#include <imgui_internal.h>

#include "Support/LiveObjects.h"
#include "Views/Test/SceneViewFixture.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using VantrelTest::LiveObjects;
using VantrelTest::pixelOf;

using VantrelTest::differences;

using SceneViewTest = VantrelTest::SceneViewFixture;

TEST_F(SceneViewTest, emptySceneIsTheClearColor) {
    record("/settings/rendering/clearColor", "[0.2, 0.4, 0.6, 1]");
    host.frame();
    const Image2D picture = host.picture(), ids = host.objectIds();
    for(const Vector2i& pixel: {Vector2i{0, 0}, Vector2i{160, 100}, Vector2i{319, 0}}) {
        EXPECT_EQ(pixelOf(picture, pixel), (Color4ub{51, 102, 153, 255}));
        EXPECT_EQ(pixelOf(ids, pixel).rgb(), (Color3ub{255, 255, 255}));
        EXPECT_EQ(host.objectAt(pixel), NoObject);
    }
}

TEST_F(SceneViewTest, showsWhereTheCameraLooks) {
    addCube("cube");
    host.frame();
    const Vector2i middle = host.picture().size() / 2;
    EXPECT_EQ(pixelOf(host.picture(), middle), (Color4ub{255, 255, 255, 255}));
    EXPECT_EQ(host.objectAt(middle), objectOf("cube"));
    EXPECT_EQ(host.objectAt({0, 0}), NoObject);
}

TEST_F(SceneViewTest, idsBeyondAByte) {
    for(int i = 0; i != 300; ++i) addObject("o" + std::to_string(i), "[0, 0, 0]", "");
    addCube("cube");
    host.frame();
    ASSERT_GT(objectOf("cube"), 256);
    EXPECT_EQ(host.objectAt(host.picture().size() / 2), objectOf("cube"));
}

TEST_F(SceneViewTest, lightsHaveMarkersWithIds) {
    addPointLight("lamp", "[0, 0, 0]");
    host.frame();
    const Vector2i middle = host.picture().size() / 2;
    EXPECT_EQ(pixelOf(host.picture(), middle), (Color4ub{255, 128, 0, 255}));
    EXPECT_EQ(host.objectAt(middle), objectOf("lamp"));
}

TEST_F(SceneViewTest, pointLightsAreSpheresAndOthersPointDown) {
    addPointLight("lamp", "[-1, 0, 0]");
    addObject("sun", "[1, 0, 0]", "{'type': 'light', 'active': true, 'light': {'type': 'sun', 'color': [0, 1, 0]}}");
    host.frame();
    const Image2D picture = host.objectIds();
    // Pixels of the rectangle about an object's marker.
    const auto sizeOf = [&](const char* id) {
        Vector2i min{1000}, max{-1000};
        const auto pixels = picture.pixels<Color4ub>();
        for(Int y = 0; y != picture.size().y(); ++y)
            for(Int x = 0; x != picture.size().x(); ++x) {
                if(pixels[std::size_t(y)][std::size_t(x)].r() != objectOf(id)) continue;
                min = Math::min(min, Vector2i{x, y});
                max = Math::max(max, Vector2i{x, y});
            }
        return max - min;
    };
    const Vector2i lamp = sizeOf("lamp"), sun = sizeOf("sun");
    EXPECT_GT(lamp.x(), 4);
    EXPECT_NEAR(lamp.x(), lamp.y(), 3);
    EXPECT_GT(sun.y(), 2 * sun.x());
}

TEST_F(SceneViewTest, selectionHasAnOutline) {
    addCube("cube");
    host.frame();
    const Image2D before = host.picture();
    data().selectObject(objectOf("cube"), false);
    host.frame();
    const Image2D after = host.picture();
    // A line around the cube, and nothing on it.
    EXPECT_GT(differences(before, after), 300);
    EXPECT_LT(differences(before, after), 3000);
    EXPECT_EQ(pixelOf(after, after.size() / 2), (Color4ub{255, 255, 255, 255}));
    std::size_t magenta = 0;
    for(const auto row: after.pixels<Color4ub>())
        for(const Color4ub color: row) magenta += color.r() > 190 && color.g() < 40 && color.b() > 100;
    EXPECT_GT(magenta, 300);

    data().deselectObject(objectOf("cube"));
    host.frame();
    EXPECT_EQ(differences(before, host.picture()), 0);
}

TEST_F(SceneViewTest, outlineIsAsWideAsTheScale) {
    addCube("cube");
    host.frame();
    const auto outlined = [&] {
        data().deselectObject(objectOf("cube"));
        host.frame();
        const Image2D before = host.picture();
        data().selectObject(objectOf("cube"), false);
        host.frame();
        return differences(before, host.picture());
    };
    const std::size_t once = outlined();
    host.platform.scale = Vector2{1.0f, 2.0f};
    const std::size_t twice = outlined();
    EXPECT_GT(twice, once * 17 / 10);
    EXPECT_LT(twice, once * 25 / 10);
}

TEST_F(SceneViewTest, meshVisualizationShowsEdges) {
    addCube("cube");
    host.frame();
    const Image2D shaded = host.picture();
    data().sceneView = SceneViewRecord{};
    host.reloadView();
    data().sceneView->renderMode = 1;
    Containers::Array<char> saved = host.view().saveState(false);
    data().sceneView->renderMode = 1;
    host.view().restoreState(saved);
    host.frame();
    EXPECT_GT(differences(shaded, host.picture()), 2000);
}

TEST_F(SceneViewTest, axesOfObjects) {
    addObject("empty", "[0, 0, 0]", "");
    host.frame();
    const Image2D before = host.picture();
    host.state.display(DebugDisplay::Objects) = 1;
    host.frame();
    EXPECT_GT(differences(before, host.picture()), 10);
    EXPECT_LT(differences(before, host.picture()), 200);
}

TEST_F(SceneViewTest, shapesOfColliders) {
    addObject("box", "[0, 0, 0]",
        "{'type': 'collision', 'active': true, 'collision': {'collider': 'aabb', 'aabb': {'extents': [1, 1, 1]}, "
        "'groups': 1}}");
    host.frame();
    const Image2D before = host.picture();
    host.state.display(DebugDisplay::CollisionShapes) = 1;
    host.frame();
    const Image2D after = host.picture();
    EXPECT_GT(differences(before, after), 100);
    std::size_t green = 0;
    for(const auto row: after.pixels<Color4ub>())
        for(const Color4ub color: row) green += color.g() > 150 && color.r() < 180 && color.b() < 180;
    EXPECT_GT(green, 50);
}

TEST_F(SceneViewTest, resetsWhatChanged) {
    addCube("cube");
    host.session.update();
    host.frame();
    EXPECT_EQ(data().scene().main().changed().countSet(), 0);
}

TEST_F(SceneViewTest, framebuffersAreAsLargeAsTheScaleMakesThem) {
    host.platform.scale = Vector2{2.0f};
    host.resize({400, 300});
    host.frame();
    const Vector2i size = host.state.sceneViewFramebuffer->viewport().size();
    EXPECT_EQ(size.x(), 800);
    EXPECT_EQ(size.y() % 2, 0);
    EXPECT_GT(size.y(), 500);
    // A change of the scale alone leaves them.
    host.platform.scale = Vector2{1.0f};
    host.frame();
    EXPECT_EQ(host.state.sceneViewFramebuffer->viewport().size(), size);
}

TEST_F(SceneViewTest, atLeastOnePixel) {
    host.resize({400, 1});
    host.frame();
    EXPECT_GE(host.state.sceneViewFramebuffer->viewport().size().min(), 1);
    host.resize({1, 1});
    host.frame();
    EXPECT_GE(host.state.sceneViewFramebuffer->viewport().size().min(), 1);
}

TEST_F(SceneViewTest, aViewThatIsLargerThanTheGlDrawsIsSmallerThanItsWindow) {
    GLint edge = 0;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &edge);
    host.platform.scale = {1.0e5f, 0.05f};
    host.resize({400, 200});
    host.frame();
    const Vector2i size = host.state.sceneViewFramebuffer->viewport().size();
    EXPECT_GT(size.x(), 1000);
    EXPECT_LE(size.x(), edge);
    EXPECT_LT(size.y(), 20);
}

TEST_F(SceneViewTest, resizingLeaksNothing) {
    host.frame();
    const LiveObjects before = LiveObjects::count();
    for(int i = 1; i != 100; ++i) {
        host.resize({100 + i, 200 - i});
        host.frame();
    }
    EXPECT_EQ(LiveObjects::count(), before);
}

TEST_F(SceneViewTest, flyingPinsTheCursor) {
    hover();
    host.platform.log.clear();
    host.platform.cursor = {200.0, 150.0};
    press(MouseButton::Right);
    EXPECT_EQ(host.platform.log, "disable move ");
    const Vector2d center = host.platform.cursor;
    EXPECT_EQ(center, (Vector2d{160.0, 120.0}));
    host.frame();
    EXPECT_TRUE(host.state.wantsFrame);
    host.platform.log.clear();
    release(MouseButton::Right);
    EXPECT_EQ(host.platform.log, "move enable ");
    EXPECT_EQ(host.platform.cursor, (Vector2d{200.0, 150.0}));
    host.frame();
    EXPECT_FALSE(host.state.wantsFrame);
}

TEST_F(SceneViewTest, stillMouseTurnsByNothing) {
    hover();
    const Float pitch = data().cameraPitch, yaw = data().cameraYaw;
    press(MouseButton::Right);
    for(int i = 0; i != 640; ++i) host.frame();
    EXPECT_EQ(data().cameraPitch, pitch);
    EXPECT_EQ(data().cameraYaw, yaw);
    host.platform.cursor += Vector2d{8.0, -4.0};
    host.frame();
    EXPECT_FLOAT_EQ(data().cameraYaw, yaw - 8 * host.state.cameraRotationFactor);
    EXPECT_FLOAT_EQ(data().cameraPitch, pitch + 4 * host.state.cameraRotationFactor);
}

TEST_F(SceneViewTest, fliesWhereItLooks) {
    hover();
    const Vector3 before = cameraNow().translation();
    pressKey('W');
    press(MouseButton::Right);
    host.frame(0.5);
    host.frame(0.5);
    const Vector3 way = cameraNow().translation() - before;
    EXPECT_NEAR(way.length(), 3.0f, 0.1f);
    EXPECT_LT(Math::dot(way, before), 0.0f);
    releaseKey('W');
    host.frame(0.5);
    host.frame(0.5);
    EXPECT_NEAR((cameraNow().translation() - before - way).length(), 0.0f, 0.05f);
}

TEST_F(SceneViewTest, orbitsAroundThePivot) {
    hover();
    press(MouseButton::Middle);
    host.view().mouseMoveEvent({{40, 10}, 0});
    host.frame();
    const DualQuaternion camera = cameraNow();
    EXPECT_NEAR(camera.translation().length(), std::sqrt(27.0f), 1e-3f);
    EXPECT_GT((camera.translation() - Vector3{3.0f}).length(), 0.3f);
    release(MouseButton::Middle);
    host.view().mouseMoveEvent({{40, 10}, 0});
    host.frame();
    EXPECT_EQ(cameraNow(), camera);
}

TEST_F(SceneViewTest, nothingMovesUnlessHovered) {
    ImGui::GetIO().MousePos = {-10.0f, -10.0f};
    host.frame();
    host.frame();
    const DualQuaternion camera = cameraNow();
    press(MouseButton::Middle);
    host.view().mouseMoveEvent({{40, 10}, 0});
    host.view().mouseScrollEvent({{0.0f, 1.0f}, 0});
    press(MouseButton::Right);
    EXPECT_FALSE(host.platform.isCursorDisabled);
    host.frame();
    EXPECT_EQ(cameraNow(), camera);
}

TEST_F(SceneViewTest, orbitWaitsOutsideOfThePicture) {
    hover();
    press(MouseButton::Middle);
    const DualQuaternion camera = cameraNow();
    hover({-10, -10});
    host.view().mouseMoveEvent({{40, 10}, 0});
    host.frame();
    EXPECT_EQ(cameraNow(), camera);
    hover();
    host.view().mouseMoveEvent({{40, 10}, 0});
    host.frame();
    EXPECT_NE(cameraNow(), camera);
}

TEST_F(SceneViewTest, wheelGoesCloser) {
    hover();
    host.view().mouseScrollEvent({{0.0f, 1.0f}, 0});
    host.frame();
    EXPECT_NEAR(cameraNow().translation().length(), std::sqrt(27.0f) * 0.9f, 1e-3f);
}

TEST_F(SceneViewTest, framesTheSelection) {
    addCube("cube", "[10, 0, 0]");
    host.frame();
    hover();
    pressKey('F');
    EXPECT_NEAR((cameraNow().translation() - Vector3{3.0f}).length(), 0.0f, 1e-3f);
    data().selectObject(objectOf("cube"), false);
    pressKey('F');
    host.frame();
    EXPECT_EQ(host.objectAt(host.picture().size() / 2), objectOf("cube"));
}

// Groups have no mesh of their own; what is below them counts.
TEST_F(SceneViewTest, framesAGroupByItsChildren) {
    addObject("group", "[0, 0, 0]", "");
    addCube("cube");
    record("/objects/cube/parent", "'group'");
    record("/objects/cube/scaling", "[5, 5, 5]");
    host.frame();
    hover();
    data().selectObject(objectOf("group"), false);
    pressKey('F');
    host.frame();
    host.view().saveState(false);
    EXPECT_GT(data().sceneView->orbitDistance, 5.0f);
}

TEST_F(SceneViewTest, hoveredPaneTakesTheFocus) {
    ImGui::GetIO().MousePos = {-10.0f, -10.0f};
    host.frame();
    ImGui::SetWindowFocus(nullptr);
    host.frame();
    pressKey('W');
    releaseKey('W');
    hover();
    press(MouseButton::Right);
    const Vector3 before = cameraNow().translation();
    // The velocity is computed again with the focus only.
    pressKey('W');
    host.frame(0.5);
    host.frame(0.5);
    EXPECT_GT((cameraNow().translation() - before).length(), 1.0f);
}

TEST_F(SceneViewTest, hoveredPaneIsFocused) {
    const ImGuiContext& ui = *ImGui::GetCurrentContext();
    ImGui::GetIO().MousePos = {-10.0f, -10.0f};
    host.frame();
    ImGui::FocusWindow(nullptr);
    host.frame();
    EXPECT_EQ(ui.NavWindow, nullptr);

    // Not while something of another window is held, even where others may be used meanwhile.
    ImGui::GetIO().MousePos = {160.0f, 120.0f};
    ImGui::SetActiveID(1234, nullptr);
    ImGui::GetCurrentContext()->ActiveIdAllowOverlap = true;
    host.frame();
    EXPECT_EQ(ui.NavWindow, nullptr);
    ImGui::ClearActiveID();
    host.frame();
    ASSERT_TRUE(ui.NavWindow);
    EXPECT_STREQ(ui.NavWindow->Name, "Scene View");
}

TEST_F(SceneViewTest, focusedViewHasNoActiveItem) {
    hover();
    ImGui::SetActiveID(1234, nullptr);
    host.frame();
    EXPECT_FALSE(ImGui::IsAnyItemActive());
}

TEST_F(SceneViewTest, framesNothingWhileAnItemIsActive) {
    addCube("cube", "[10, 0, 0]");
    host.frame();
    data().selectObject(objectOf("cube"), false);
    const DualQuaternion before = cameraNow();
    ImGui::SetActiveID(1234, nullptr);
    pressKey('F');
    EXPECT_EQ(cameraNow(), before);
    ImGui::ClearActiveID();
    pressKey('F');
    EXPECT_NE(cameraNow(), before);
}

// A reload that takes long is no frame that was long.
TEST_F(SceneViewTest, reloadIsNotFrameTime) {
    hover();
    pressKey('W');
    press(MouseButton::Right);
    host.frame();
    const Vector3 before = cameraNow().translation();
    data().scene().revisions().touch(Aspect::Pipelines);
    const Double start = host.platform.time;
    host.platform.timePerCall = 5.0;
    host.frame(0.0);
    host.platform.timePerCall = 0.0;
    host.platform.time = start + 5.0;
    host.frame();
    EXPECT_LT((cameraNow().translation() - before).length(), 0.5f);
}

TEST_F(SceneViewTest, rendererOfASecondInitKnowsTheScene) {
    addCube("cube");
    host.frame();
    const Image2D before = host.picture();
    host.view().init(host.imguiContext(), &host.session.data(), &host.session.editor());
    host.frame();
    EXPECT_EQ(differences(before, host.picture()), 0);
}

// Items of the menu "Render Type", from the top.
TEST_F(SceneViewTest, renderTypes) {
    const auto click = [&](Float x, Float y) {
        ImGuiIO& io = ImGui::GetIO();
        io.MousePos = {x, y};
        host.frame();
        io.MouseDown[0] = true;
        host.frame();
        io.MouseDown[0] = false;
        host.frame();
        host.frame();
    };
    const struct {
        Float y;
        UnsignedInt mode;
    } items[]{{69.0f, 2}, {86.0f, 1}, {52.0f, 0}};
    host.frame();
    for(const auto& item: items) {
        click(30.0f, 28.0f);
        click(30.0f, item.y);
        host.view().saveState(false);
        EXPECT_EQ(data().sceneView->renderMode, item.mode) << "at " << item.y;
    }
}

TEST_F(SceneViewTest, closedViewDrawsNothingAndLetsGo) {
    hover();
    pressKey('W');
    press(MouseButton::Right);
    host.state.views.isViewOpen(0) = false;
    host.frame();
    EXPECT_FALSE(host.platform.isCursorDisabled);
    EXPECT_FALSE(host.state.wantsFrame);
    EXPECT_FALSE(ImGui::FindWindowByName("Scene View")->Active);
    const DualQuaternion camera = cameraNow();
    press(MouseButton::Middle);
    host.view().mouseMoveEvent({{40, 10}, 0});
    host.frame();
    EXPECT_EQ(cameraNow(), camera);

    host.state.views.isViewOpen(0) = true;
    host.frame();
    EXPECT_TRUE(ImGui::FindWindowByName("Scene View")->Active);
}

TEST_F(SceneViewTest, paneWithoutASize) {
    host.frame();
    host.state.views.pane(0) = Range2D{{10.0f, 20.0f}, {10.0f, 20.0f}};
    host.frame();
    EXPECT_LE(ImGui::FindWindowByName("Scene View")->Size.x, 60.0f);
    EXPECT_GE(host.state.sceneViewFramebuffer->viewport().size().min(), 1);
}

TEST_F(SceneViewTest, frozenFrustumStaysWhereTheCameraWas) {
    addCube("cube");
    addCube("behind", "[6, 6, 6]");
    host.frame();
    EXPECT_EQ(host.state.statistics.visibleMeshes, 1);
    host.state.display(DebugDisplay::FreezeCullingFrustum) = 1;
    host.frame();
    // From farther away the edges of what is culled for are seen, and the other cube still is not.
    hover();
    press(MouseButton::Middle);
    host.view().mouseMoveEvent({{0, 2000}, ModifierControl});
    host.view().mouseMoveEvent({{0, 2000}, ModifierControl});
    host.frame();
    const auto yellow = [&] {
        std::size_t count = 0;
        const Image2D picture = host.picture();
        for(const auto row: picture.pixels<Color4ub>())
            for(const Color4ub color: row) count += color.r() > 200 && color.g() > 150 && color.b() < 120;
        return count;
    };
    EXPECT_EQ(host.state.statistics.visibleMeshes, 1);
    EXPECT_GT(yellow(), 20);
    host.state.display(DebugDisplay::FreezeCullingFrustum) = 0;
    host.frame();
    EXPECT_EQ(host.state.statistics.visibleMeshes, 2);
    EXPECT_EQ(yellow(), 0);
}

// The switch is still on after a reload; then what is culled is what is seen.
TEST_F(SceneViewTest, frozenCullingAfterAReload) {
    addCube("cube");
    host.state.display(DebugDisplay::FreezeCullingFrustum) = 1;
    host.frame();
    host.reloadView();
    host.frame();
    EXPECT_EQ(host.state.statistics.visibleMeshes, 1);
    EXPECT_EQ(host.objectAt(host.picture().size() / 2), objectOf("cube"));
}

TEST_F(SceneViewTest, anotherProjectIsSeenFromTheFirstPlace) {
    hover();
    host.view().mouseScrollEvent({{0.0f, 3.0f}, 0});
    host.frame();
    ++data().projectNumber;
    host.frame();
    EXPECT_NEAR((cameraNow().translation() - Vector3{3.0f}).length(), 0.0f, 1e-5f);
}

// However a flight ends, each key that was pressed is released once: nothing is left that would move the next one.
TEST_F(SceneViewTest, keysBalanceHoweverAFlightEnds) {
    const auto fly = [&] {
        hover();
        pressKey('W');
        press(MouseButton::Right);
        host.frame();
    };
    const auto expectRest = [&](const char* what) {
        releaseKey('W');
        release(MouseButton::Right);
        EXPECT_FALSE(host.platform.isCursorDisabled) << what;
        hover();
        press(MouseButton::Right);
        const Vector3 before = cameraNow().translation();
        host.frame(0.5);
        host.frame(0.5);
        EXPECT_EQ(cameraNow().translation(), before) << what;
        release(MouseButton::Right);
    };
    fly();
    host.view().focusLost();
    expectRest("without the focus");
    fly();
    host.state.views.isViewOpen(0) = false;
    host.frame();
    host.state.views.isViewOpen(0) = true;
    expectRest("closed");
    fly();
    ++data().projectNumber;
    host.frame();
    expectRest("with another project");
}

TEST_F(SceneViewTest, lostFocusLetsGo) {
    hover();
    pressKey('W');
    press(MouseButton::Right);
    host.view().focusLost();
    EXPECT_FALSE(host.platform.isCursorDisabled);
    const Vector3 before = cameraNow().translation();
    host.frame(0.5);
    host.frame(0.5);
    EXPECT_EQ(cameraNow().translation(), before);
}

TEST_F(SceneViewTest, reloadKeepsTheView) {
    addCube("cube");
    hover();
    press(MouseButton::Middle);
    host.view().mouseMoveEvent({{90, 30}, 0});
    release(MouseButton::Middle);
    host.view().mouseScrollEvent({{0.0f, 2.0f}, 0});
    host.frame();
    const Image2D before = host.picture();
    const DualQuaternion camera = cameraNow();
    host.reloadView();
    host.frame();
    EXPECT_EQ(cameraNow(), camera);
    EXPECT_EQ(differences(before, host.picture()), 0);
}

TEST_F(SceneViewTest, isDrawnAgainUntilTheLightOfAnEnvironmentIsComplete) {
    data().scene().main().environmentBaking.isAtOnce = false;
    // Black and pink, as it has no file.
    {
        const Utility::Warning silence{nullptr};
        record("/images/sky", "{'name': 'Sky'}");
        host.frame();
    }
    EXPECT_FALSE(host.state.wantsFrame);
    const Image2D before = host.picture();
    record("/settings/rendering/environment/image", "'sky'");
    host.frame();
    EXPECT_EQ(differences(host.picture(), before), 0u);
    int frames = 1;
    for(; host.state.wantsFrame && frames != 100; ++frames) host.frame();
    EXPECT_GT(frames, 5);
    EXPECT_LT(frames, 60);
    EXPECT_GT(differences(host.picture(), before), 1000u);
}

// What init() sets holds where nothing was recorded.
TEST_F(SceneViewTest, restoreWithoutARecord) {
    host.frame();
    const Containers::Array<char> saved = host.view().saveState(false);
    data().sceneView = {};
    host.destroyView();
    Containers::Pointer<AbstractModule> view = host.instantiate();
    view->restoreState(saved);
    view->saveState(false);
    EXPECT_NEAR((data().sceneView->camera.translation() - Vector3{3.0f}).length(), 0.0f, 1e-5f);
    EXPECT_FLOAT_EQ(data().sceneView->orbitDistance, std::sqrt(27.0f));
    EXPECT_FLOAT_EQ(data().sceneView->flySpeed, 3.0f);
}

TEST_F(SceneViewTest, tellsWhatTheFrameTook) {
    addCube("a");
    addCube("b", "[2, 0, 0]");
    host.frame();
    EXPECT_EQ(host.state.statistics.visibleMeshes, 2);
    EXPECT_EQ(host.state.statistics.triangles, 24);
    EXPECT_GE(host.state.statistics.drawCalls, 1);
}

// More maps than a frame is meant to take: 600, and thousands of objects that may be in them.
TEST_F(SceneViewTest, shadowsOfManyLightsComeOneAfterTheOther) {
    for(int i = 0; i != 7000; ++i) addCube("cube" + std::to_string(i), "[0, -500, 0]");
    for(int i = 0; i != 100; ++i)
        addObject("lamp" + std::to_string(i), "[" + std::to_string(i) + ", 0, 0]",
            "{'type': 'light', 'active': true, 'light': {'type': 'point', 'shadows': true, 'shadowRange': 1, "
            "'shadowTexelSize': 1}}");
    host.frame();
    EXPECT_TRUE(host.state.isPictureIncomplete);
    EXPECT_TRUE(host.state.wantsFrame);
    const unsigned first = host.state.statistics.shadowMaps;
    EXPECT_GT(first, 6u);
    EXPECT_LT(first, 600u);
    host.frame();
    EXPECT_EQ(first + host.state.statistics.shadowMaps, 600u);
    EXPECT_FALSE(host.state.isPictureIncomplete);

    for(int i = 0; i != 100; ++i)
        record(("/objects/lamp" + std::to_string(i) + "/components/0/light/shadowRange").c_str(), "2");
    host.state.wantsWholePicture = true;
    host.frame();
    EXPECT_EQ(host.state.statistics.shadowMaps, 600u);
    EXPECT_FALSE(host.state.isPictureIncomplete);
}

} // namespace
