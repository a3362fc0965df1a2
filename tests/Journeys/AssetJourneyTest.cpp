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

    JourneyResult playWith(const fs::path& file, const std::string& script) {
        return play("wait 3\n" + script, "--size 500x400 --frames 1 \"" + file.string() + "\"");
    }
    // Of the imported objects; empty where the file has none.
    std::string selectionOf(const fs::path& file) {
        const JourneyResult result = playWith(file, "dump selection {}/selection\n");
        EXPECT_EQ(result.status, 0) << result.output;
        std::string ids = read("selection");
        std::replace(ids.begin(), ids.end(), '\n', ' ');
        return ids;
    }
    // Framed, but without the marks of a selection.
    static std::string framed(const std::string& ids, const std::string& name) {
        const std::string frame = ids.empty() ? "" : "mouse 390 150\nselect " + ids + "\nkey F\nkeyup F\nwait 60\n";
        return frame + "select\nwait 1\nscreenshot {}/" + name + ".png\n";
    }
    // Seen, saved, and seen again.
    JourneyResult look(const fs::path& file, const std::string& ids, const std::string& name) {
        return playWith(file,
            "dump document {}/" + name + ".json\n" + framed(ids, name) +
                "save {}/saved/project.json\nopen {}/saved/project.json\nwait 2\n" + framed(ids, name + "-reopened"));
    }
    // Of the view alone: the log and the title differ.
    template<class Function> static double shareOfPixels(Function&& function) {
        std::size_t count = 0;
        for(int y = 72; y != 220; ++y)
            for(int x = 288; x != 498; ++x) count += function(x, y);
        return double(count) / (148.0 * 210.0);
    }
    static double covered(const JourneyPicture& picture) {
        const unsigned background = picture.pixel(290, 75);
        return shareOfPixels([&](int x, int y) { return picture.pixel(x, y) != background; });
    }
    static double different(const JourneyPicture& a, const JourneyPicture& b) {
        return shareOfPixels([&](int x, int y) { return a.pixel(x, y) != b.pixel(x, y); });
    }
};

TEST_F(AssetJourneyTest, AnotherProcessOpensWhatWasSaved) {
    ASSERT_FALSE(models().empty());
    for(const fs::path& model: models()) {
        SCOPED_TRACE(model);
        fs::remove_all(folder.path("saved"));
        fs::create_directory(folder.path("saved"));
        const std::string ids = selectionOf(model);
        const JourneyResult imported = look(model, ids, "imported");
        EXPECT_EQ(imported.status, 0) << imported.output;
        EXPECT_THAT(imported.output, HasSubstr("Imported " + model.filename().string()));
        const JourneyResult opened = look(folder.path("saved/project.json"), ids, "opened");
        EXPECT_EQ(opened.status, 0) << opened.output;
        EXPECT_EQ(read("imported.json"), read("opened.json"));
        EXPECT_GT(covered(picture("imported.png")), 0.02) << "nothing of it is seen";
        EXPECT_EQ(different(picture("imported-reopened.png"), picture("opened-reopened.png")), 0.0);
        // What moves is elsewhere at another time.
        if(read("imported.json").find("\"animations\"") != std::string::npos) continue;
        EXPECT_LT(different(picture("imported.png"), picture("imported-reopened.png")), 0.001);
    }
}

}

}
