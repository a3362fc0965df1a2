
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <sys/wait.h>

#include "../../../Data/Test/SessionFixture.h"
#include "Data/Resources/Test/ImageBuilder.h"
#include "Import/Converter/Test/GltfText.h"
#include "Import/ImportQueue.h"
#include "Support/TestFolder.h"
#include "Vantrel/EditorUtilities/LoadFile.h"

namespace VantrelImport::Test {

namespace {

namespace fs = std::filesystem;
using namespace VantrelEngine;

// The editor's queue and the program itself, with folders for what passes.
class QueueTest: public VantrelTest::SessionFixture {
protected:
    QueueTest() {
        fs::create_directory(folder.path("passing"));
        for(const char* const variable: Folders) setenv(variable, folder.path("passing").data(), 1);
        EXPECT_EQ(session.save(folder.path("project.json")), "");
    }
    ~QueueTest() override {
        for(const char* const variable: Folders) unsetenv(variable);
    }

    static constexpr const char* Folders[]{"TMPDIR", "XDG_CACHE_HOME", "XDG_DATA_HOME"};

    static std::size_t openFiles() {
        std::size_t count = 0;
        for([[maybe_unused]] const auto& entry: fs::directory_iterator{"/proc/self/fd"}) ++count;
        return count;
    }
    std::size_t leftBehind() const {
        std::size_t count = 0;
        for([[maybe_unused]] const auto& entry: fs::recursive_directory_iterator{folder.path("passing")}) ++count;
        return count;
    }

    VantrelTest::TestFolder folder;
    ImportQueue queue{session, VANTREL_IMPORT_PROGRAM};
};

TEST_F(QueueTest, ADroppedImageIsFoundAgainByItsFile) {
    folder.write("checker.png", VantrelEngine::Test::pngFile(3, 2, 90));
    const std::string path = folder.path("checker.png");
    EXPECT_FALSE(isImageLoaded(path.data(), session.editor()));
    EXPECT_TRUE(loadImage(path.data(), session.editor(), false));
    EXPECT_TRUE(isImageLoaded(path.data(), session.editor()));
    EXPECT_FALSE(session.data().project().resourceByName("textures", "checker.png").isEmpty());
}

TEST_F(QueueTest, AHundredImportsLeaveNothingBehind) {
    folder.write("a.gltf", triangleGltf());
    EXPECT_EQ(queue.importNow(folder.path("a.gltf")).error, "");
    const std::size_t files = openFiles(), left = leftBehind();
    for(int i = 0; i != 100; ++i) ASSERT_EQ(queue.importNow(folder.path("a.gltf")).error, "") << i;
    EXPECT_EQ(openFiles(), files);
    EXPECT_EQ(leftBehind(), left);
    // No process, running or not waited for.
    errno = 0;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
    EXPECT_EQ(session.data().project().section("objects")->MemberCount(), 202u);
}

} // namespace

} // namespace VantrelImport::Test
