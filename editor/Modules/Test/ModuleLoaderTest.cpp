#include "Modules/ModuleLoader.h"

#include <filesystem>

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <imgui.h>
#include <link.h>

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "Modules/Test/RecorderSupport.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using VantrelTest::TestFolder;

// How many libraries of the recorder's name are in the process.
int loadedRecorders() {
    int count = 0;
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) {
            *static_cast<int*>(data) += fs::path{info->dlpi_name}.filename() == "Recorder.so";
            return 0;
        },
        &count);
    return count;
}

class ModuleLoaderTest: public testing::Test {
protected:
    ModuleLoaderTest(): file{folder.path("Recorder.so")}, context{ImGui::CreateContext()} { provide(RECORDER); }
    ~ModuleLoaderTest() override { ImGui::DestroyContext(context); }

    void provide(const std::string& library) { fs::copy_file(library, file, fs::copy_options::overwrite_existing); }
    void truncate(double share) { fs::resize_file(file, std::uintmax_t(double(fs::file_size(RECORDER)) * share)); }
    // The loader's copies, in all private folders that there are now.
    std::string load(ModuleLoader& loader) {
        std::string error = loader.load();
        if(loader.module()) loader.module()->init(context, &data, &editor);
        return error;
    }

    TestFolder folder;
    std::string file;
    ImGuiContext* context;
    EditorData data;
    VantrelEditor editor;
};

TEST_F(ModuleLoaderTest, LoadsACopyAndUnloadsIt) {
    ModuleLoader loader{file};
    EXPECT_EQ(heard([&] { EXPECT_EQ(load(loader), ""); }), "recorder: init true\n");
    ASSERT_TRUE(loader.module());
    EXPECT_EQ(loader.module()->plugin(), "Recorder");
    EXPECT_EQ(loadedRecorders(), 1);
    // The file is free.
    fs::remove(file);
    EXPECT_EQ(heard([&] { loader.unload(); }), "recorder: deleted\n");
    EXPECT_FALSE(loader.module());
    EXPECT_EQ(loadedRecorders(), 0);
}

TEST_F(ModuleLoaderTest, ReloadHandsTheStateOver) {
    ModuleLoader loader{file};
    heard([&] { load(loader); });
    EXPECT_EQ(heard([&] { EXPECT_EQ(loader.reload(), ""); }),
        "recorder: saved\nrecorder: deleted\nrecorder: load\nrecorder: init true\n");
    heard([&] { loader.unload(); });
}

TEST_F(ModuleLoaderTest, FiftyReloadsLeaveOneLibraryAndOneCopy) {
    const fs::path temporary = folder.path();
    setenv("TMPDIR", temporary.string().data(), 1);
    {
        ModuleLoader loader{file};
        heard([&] { load(loader); });
        for(int i = 0; i != 50; ++i) {
            heard([&] { EXPECT_EQ(loader.reload(), ""); });
            ASSERT_EQ(loadedRecorders(), 1) << i;
        }
        std::size_t copies = 0;
        for(const fs::directory_entry& entry: fs::recursive_directory_iterator{temporary})
            copies += entry.path().filename() == "Recorder.so" && entry.path() != file;
        EXPECT_EQ(copies, 1);
        EXPECT_EQ(editor.state().views.viewCount(), 1);
        heard([&] { loader.unload(); });
    }
    unsetenv("TMPDIR");
    // The folder of the copies is gone; the library itself stays.
    EXPECT_EQ(std::distance(fs::directory_iterator{temporary}, fs::directory_iterator{}), 1);
}

TEST_F(ModuleLoaderTest, ATruncatedLibraryIsRefusedAndTheOldViewGoesOn) {
    ModuleLoader loader{file};
    heard([&] { load(loader); });
    AbstractModule* const before = loader.module();
    for(const double share: {0.0, 0.001, 0.3, 0.7, 0.98}) {
        provide(RECORDER);
        truncate(share);
        EXPECT_EQ(heard([&] { EXPECT_EQ(loader.reload(), file + ": the file is cut off"); }), "") << share;
        EXPECT_EQ(loader.module(), before) << "it was not even saved";
    }
    provide(RECORDER);
    heard([&] { EXPECT_EQ(loader.reload(), ""); });
    heard([&] { loader.unload(); });
}

TEST_F(ModuleLoaderTest, ALibraryOfAnotherVersionIsRefusedAndTheOldViewComesBack) {
    ModuleLoader loader{file};
    heard([&] { load(loader); });
    provide(OTHER_RECORDER);
    EXPECT_EQ(heard([&] {
        const std::string error = loader.reload();
        EXPECT_THAT(error,
            AllOf(StartsWith(file + ": "), HasSubstr("wrong version of plugin Recorder, expected 7"),
                Not(HasSubstr("\n"))));
    }),
        "recorder: saved\nrecorder: deleted\nrecorder: load\nrecorder: init true\n");
    ASSERT_TRUE(loader.module());
    EXPECT_EQ(loadedRecorders(), 1);
    // And the next one that is right is taken.
    provide(RECORDER);
    heard([&] { EXPECT_EQ(loader.reload(), ""); });
    heard([&] { loader.unload(); });
}

TEST_F(ModuleLoaderTest, ReloadFromAnotherFileKeepsToItWhenItWorks) {
    ModuleLoader loader{file};
    heard([&] { load(loader); });
    heard([&] { EXPECT_THAT(loader.reload(OTHER_RECORDER), StartsWith(OTHER_RECORDER ": ")); });
    EXPECT_EQ(loader.file(), file);
    heard([&] { EXPECT_EQ(loader.reload(RECORDER), ""); });
    EXPECT_EQ(loader.file(), RECORDER);
    heard([&] { loader.unload(); });
}

TEST_F(ModuleLoaderTest, AFirstLibraryThatIsNotThereGivesOneLine) {
    ModuleLoader loader{folder.path("Missing.so")};
    EXPECT_EQ(loader.load(), folder.path("Missing.so") + ": the file cannot be read");
    EXPECT_FALSE(loader.module());
}

} // namespace

} // namespace VantrelEngine
