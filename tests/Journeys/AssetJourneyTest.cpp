#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

// Models of others, out of a folder that is named when the tests are configured.
class AssetJourneyTest: public JourneyTest {
protected:
    AssetJourneyTest() { setenv("XDG_DATA_HOME", folder.path("data").data(), 1); }

    static std::vector<fs::path> models() {
        std::vector<fs::path> files;
        for(const auto& entry: fs::recursive_directory_iterator{ASSETS})
            for(const char* const suffix: {".glb", ".gltf", ".obj", ".hdr"})
                if(entry.path().extension() == suffix) files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        return files;
    }

    JourneyResult look(const fs::path& file, const std::string& name) {
        return play("wait 3\nselect\nscreenshot {}/" + name + ".png\ndump document {}/" + name +
                ".json\nsave {}/saved/project.json\nopen {}/saved/project.json\nwait 2\nscreenshot {}/" + name +
                "-reopened.png\n",
            "--size 400x300 --frames 1 \"" + file.string() + "\"");
    }
    static std::size_t differentPixels(const JourneyPicture& a, const JourneyPicture& b) {
        std::size_t count = 0;
        // Of the view alone: the log and the title differ.
        for(int y = 80; y != 110; ++y)
            for(int x = 290; x != 395; ++x) count += a.pixel(x, y) != b.pixel(x, y);
        return count;
    }
};

TEST_F(AssetJourneyTest, AnotherProcessOpensWhatWasSaved) {
    ASSERT_FALSE(models().empty());
    for(const fs::path& model: models()) {
        SCOPED_TRACE(model);
        fs::remove_all(folder.path("saved"));
        fs::create_directory(folder.path("saved"));
        const JourneyResult imported = look(model, "imported");
        EXPECT_EQ(imported.status, 0) << imported.output;
        EXPECT_THAT(imported.output, HasSubstr("Imported " + model.filename().string()));
        const JourneyResult opened = look(folder.path("saved/project.json"), "opened");
        EXPECT_EQ(opened.status, 0) << opened.output;
        EXPECT_EQ(read("imported.json"), read("opened.json"));
        // From where every project is seen at first.
        EXPECT_EQ(differentPixels(picture("imported-reopened.png"), picture("opened-reopened.png")), 0u);
    }
}

}

}
