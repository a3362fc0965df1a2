#include "Application/Settings.h"

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Application/RecentFiles.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using namespace Corrade;
using testing::ElementsAre;
using testing::IsEmpty;
using VantrelTest::TestFolder;

Settings example() {
    Settings settings;
    settings.fontScale = 1.5f;
    settings.windowSize = {1000, 700};
    settings.panes = {333.25f, 444.5f, 99.0f, {false, true, true, false, true, true, false, true, true}};
    settings.docking = "[Window][Log]\nPos=1,2\n";
    settings.recentFiles = {"/projects/\"quoted\".json", "/projects/Grüße.json"};
    return settings;
}

void expectEqual(const Settings& actual, const Settings& expected) {
    EXPECT_EQ(actual.fontScale, expected.fontScale);
    EXPECT_EQ(actual.windowSize, expected.windowSize);
    EXPECT_EQ(actual.panes.leftWidth, expected.panes.leftWidth);
    EXPECT_EQ(actual.panes.rightWidth, expected.panes.rightWidth);
    EXPECT_EQ(actual.panes.bottomHeight, expected.panes.bottomHeight);
    EXPECT_EQ(actual.panes.isOpen, expected.panes.isOpen);
    EXPECT_EQ(actual.docking, expected.docking);
    EXPECT_EQ(actual.recentFiles, expected.recentFiles);
}

TEST(SettingsTest, ReadBackAsTheyWereWritten) {
    const TestFolder folder;
    const std::string file = folder.path("new/folder/settings.json");
    EXPECT_EQ(writeSettings(file, example()), "");
    expectEqual(readSettings(file), example());
    EXPECT_FALSE(std::filesystem::exists(file + ".new"));
}

TEST(SettingsTest, NoFileIsNoMistake) {
    expectEqual(readSettings(TestFolder{}.path("settings.json"), example()), example());
    expectEqual(readSettings("", example()), example());
    EXPECT_EQ(writeSettings("", example()), "");
}

TEST(SettingsTest, WhatIsOutOfRangeOrOfAnotherTypeStaysAsItIs) {
    const TestFolder folder;
    for(const char* const text:
        {"{}", R"({"fontScale": 9, "width": 0, "height": 1e9, "panes": 3, "recent": {}, "docking": 1})",
            R"({"fontScale": "2", "width": 1.5, "panes": {"leftWidth": -1, "rightWidth": 1e9, "bottomHeight": [], "objects": 0}})"}) {
        folder.write("settings.json", text);
        expectEqual(readSettings(folder.path("settings.json"), example()), example());
    }
}

TEST(SettingsTest, AFileThatIsNotUnderstoodGivesOneLine) {
    const TestFolder folder;
    for(const char* const text: {"", "[]", "{\"fontScale\": ", "\xff\xfe"}) {
        folder.write("settings.json", text);
        Containers::String said;
        {
            Utility::Warning redirect{&said};
            expectEqual(readSettings(folder.path("settings.json"), example()), example());
        }
        EXPECT_EQ(std::string{said.data()},
            "Settings: " + folder.path("settings.json") + " is not understood and will be written anew\n");
    }
}

TEST(SettingsTest, AFolderThatCannotBeMadeGivesOneLine) {
    const TestFolder folder;
    folder.write("file", "");
    EXPECT_EQ(writeSettings(folder.path("file/settings.json"), example()),
        folder.path("file/settings.json") + ": the settings cannot be written");
}

TEST(SettingsTest, TheFileIsInTheUsersFolder) {
    setenv("XDG_CONFIG_HOME", "/somewhere", 1);
    EXPECT_EQ(settingsFile(), "/somewhere/vantrel-editor/settings.json");
    setenv("HOME", "/home/me", 1);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(settingsFile(), "/home/me/.config/vantrel-editor/settings.json");
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    EXPECT_EQ(settingsFile(), "");
}

TEST(SettingsTest, WhatCanBeMadeAgainIsInTheUsersFolderForThat) {
    setenv("XDG_CACHE_HOME", "/somewhere", 1);
    EXPECT_EQ(cacheFolder(), "/somewhere/vantrel");
    setenv("HOME", "/home/me", 1);
    setenv("XDG_CACHE_HOME", "relative", 1);
    EXPECT_EQ(cacheFolder(), "/home/me/.cache/vantrel");
    EXPECT_EQ(thumbnailFolder(), "/home/me/.cache/vantrel/thumbnails");
    unsetenv("XDG_CACHE_HOME");
    unsetenv("HOME");
    EXPECT_EQ(cacheFolder(), "");
    EXPECT_EQ(thumbnailFolder(), "");
}

TEST(RecentFilesTest, TheLatestIsFirstAndOnce) {
    std::vector<std::string> files;
    for(const char* const file: {"a", "b", "c", "a"}) addRecentFile(files, file);
    EXPECT_THAT(files, ElementsAre("a", "c", "b"));
}

TEST(RecentFilesTest, OnlyWhatIsNotThereIsTakenOut) {
    TestFolder folder;
    folder.write("broken.json", "{");
    const std::string there = folder.path("broken.json"), missing = folder.path("missing.json");
    std::vector<std::string> files{there, missing, "other"};
    removeMissingFile(files, there);
    EXPECT_THAT(files, ElementsAre(there, missing, "other"));
    removeMissingFile(files, missing);
    removeMissingFile(files, folder.path("neither.json"));
    EXPECT_THAT(files, ElementsAre(there, "other"));
}

TEST(RecentFilesTest, TheListHasAnEnd) {
    std::vector<std::string> files;
    for(std::size_t i = 0; i != MaxRecentFiles + 3; ++i) addRecentFile(files, std::to_string(i));
    ASSERT_EQ(files.size(), MaxRecentFiles);
    EXPECT_EQ(files.front(), std::to_string(MaxRecentFiles + 2));
    EXPECT_EQ(files.back(), "3");
}

} // namespace

} // namespace VantrelEngine
