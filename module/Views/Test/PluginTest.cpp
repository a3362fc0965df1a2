#include <array>
#include <cstdio>
#include <set>
#include <string>

#include <Corrade/Containers/StringIterable.h>
#include <Corrade/PluginManager/PluginMetadata.h>
#include <Corrade/Utility/Resource.h>
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Vantrel/EditorData/VantrelEditor.h>

#include "Support/LiveObjects.h"
#include "Support/ViewHost.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::UnorderedElementsAre;
using VantrelTest::LiveObjects;
using VantrelTest::ViewHost;

std::set<std::string> exportedNames() {
    std::set<std::string> names;
    FILE* const output = popen(NM " -D --defined-only --format=posix " PLUGIN_FILE, "r");
    std::array<char, 256> line;
    while(fgets(line.data(), int(line.size()), output)) {
        const std::string text{line.data()};
        names.insert(text.substr(0, text.find(' ')));
    }
    EXPECT_EQ(pclose(output), 0);
    return names;
}

TEST(PluginTest, exportsFiveFunctions) {
    EXPECT_THAT(exportedNames(),
        UnorderedElementsAre(
            "pluginVersion", "pluginInterface", "pluginInitializer", "pluginFinalizer", "pluginInstancer"));
}

TEST(PluginTest, versionInterfaceAndGroups) {
    EXPECT_FALSE(Utility::Resource::hasGroup("VantrelEditorShaders"));
    void* const library = dlopen(PLUGIN_FILE, RTLD_NOW);
    ASSERT_TRUE(library) << dlerror();
    EXPECT_EQ(reinterpret_cast<int (*)()>(dlsym(library, "pluginVersion"))(), 7);
    const Containers::StringView interface = reinterpret_cast<const char* (*)()>(dlsym(library, "pluginInterface"))();
    EXPECT_TRUE(interface.hasSuffix("AbstractModule/1.1"));
    EXPECT_EQ(interface, AbstractModule::pluginInterface());
    ASSERT_TRUE(Utility::Resource::hasGroup("VantrelEditorShaders"));
    ASSERT_TRUE(Utility::Resource::hasGroup("VantrelEngineShaders"));
    EXPECT_EQ(Utility::Resource{"VantrelEditorShaders"}.list().size(), 3);
    EXPECT_EQ(Utility::Resource{"VantrelEngineShaders"}.list().size(), 5);
    dlclose(library);
    EXPECT_FALSE(Utility::Resource::hasGroup("VantrelEditorShaders"));
    EXPECT_FALSE(Utility::Resource::hasGroup("VantrelEngineShaders"));
}

// Also after it has drawn, and whatever it left with the UI library and the GL.
TEST(PluginTest, isReallyUnloaded) {
    {
        ViewHost host;
        host.frame();
        EXPECT_TRUE(Utility::Resource::hasGroup("VantrelEditorShaders"));
    }
    EXPECT_FALSE(dlopen(PLUGIN_FILE, RTLD_NOW | RTLD_NOLOAD));
    EXPECT_FALSE(Utility::Resource::hasGroup("VantrelEditorShaders"));
    EXPECT_FALSE(Utility::Resource::hasGroup("VantrelEngineShaders"));
}

struct ViewLifeTest: testing::Test {
    static void SetUpTestSuite() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    ViewHost host;
};

TEST_F(ViewLifeTest, name) {
    EXPECT_EQ(host.view().name(), "Scene View");
    EXPECT_TRUE(host.view().name().flags() & Containers::StringViewFlag::NullTerminated);
    EXPECT_TRUE(host.view().takesInput());
    EXPECT_EQ(host.state.views.viewName(0), "Scene View");
}

TEST_F(ViewLifeTest, saysThatItIsInitialised) {
    Containers::String out;
    Containers::Pointer<AbstractModule> view = host.instantiate();
    {
        Utility::Debug redirected{&out};
        view->init(host.imguiContext(), &host.session.data(), &host.session.editor());
    }
    EXPECT_TRUE(Containers::StringView{out}.hasPrefix("Initializing View: SceneView\n"));
}

using ViewLifeDeathTest = ViewLifeTest;

TEST_F(ViewLifeDeathTest, initWithoutSomething) {
    EditorData* const data = &host.session.data();
    VantrelEditor* const editor = &host.session.editor();
    EXPECT_DEATH(
        host.instantiate()->init(nullptr, nullptr, nullptr), "EditorView::init\\(\\): ImGuiContext was nullptr");
    EXPECT_DEATH(host.instantiate()->init(host.imguiContext(), nullptr, editor),
        "EditorView::init\\(\\): EditorData was nullptr");
    EXPECT_DEATH(host.instantiate()->init(host.imguiContext(), data, nullptr),
        "EditorView::init\\(\\): VantrelEditor was nullptr");
}

TEST_F(ViewLifeTest, firstFrameReloadsWhatNeverChanged) {
    host.session.data().scene().revisions().acknowledge();
    host.frame();
    EXPECT_FALSE(host.state.lastReload.isEmpty());
    host.state.lastReload = "untouched";
    host.frame();
    EXPECT_EQ(host.state.lastReload, "untouched");
}

TEST_F(ViewLifeTest, stateOfAViewThatQuitsIsEmpty) {
    EXPECT_TRUE(host.view().saveState(true).isEmpty());
    EXPECT_FALSE(host.session.data().sceneView);
    EXPECT_EQ(host.view().saveState(false).size(), 3 * sizeof(void*));
    EXPECT_TRUE(host.session.data().sceneView);
}

TEST_F(ViewLifeTest, emptyStateRestoresNothing) {
    Containers::Pointer<AbstractModule> view = host.instantiate();
    const LiveObjects before = LiveObjects::count();
    view->restoreState({});
    EXPECT_EQ(LiveObjects::count(), before);
}

TEST_F(ViewLifeTest, secondInitReplacesTheFirst) {
    host.frame();
    host.view().init(host.imguiContext(), &host.session.data(), &host.session.editor());
    host.frame();
    const LiveObjects before = LiveObjects::count();
    host.view().init(host.imguiContext(), &host.session.data(), &host.session.editor());
    host.frame();
    EXPECT_EQ(LiveObjects::count(), before);
    EXPECT_EQ(host.state.views.viewCount(), 1);
}

TEST_F(ViewLifeTest, reloadsLeaveNothingBehind) {
    host.frame();
    host.reloadView();
    host.frame();
    const LiveObjects before = LiveObjects::count();
    for(int i = 0; i != 50; ++i) {
        host.reloadView();
        host.frame();
    }
    EXPECT_EQ(LiveObjects::count(), before);
    EXPECT_EQ(host.state.views.viewCount(), 1);
}

TEST_F(ViewLifeTest, viewThatIsGoneLeavesNoGlObject) {
    host.frame();
    EXPECT_TRUE(host.state.sceneViewFramebuffer);
    host.destroyView();
    EXPECT_FALSE(host.state.sceneViewFramebuffer);
    EXPECT_EQ(LiveObjects::count(), LiveObjects{});
}

} // namespace
