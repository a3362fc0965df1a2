#include "Capture.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Optional.h>
#include <Corrade/Containers/Pair.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Path.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>

using namespace Corrade;
using namespace Corrade::Containers::Literals;
using Containers::StringView;

namespace Path = Corrade::Utility::Path;

#include "Support/TestFolder.h"

namespace {

TEST(Path, split) {
    const struct {
        const char *path, *directory, *name;
    } cases[]{
        {"/a/b/c.png", "/a/b", "c.png"},
        {"c.png", "", "c.png"},
        {"/", "/", ""},
        {"", "", ""},
        {"a/", "a", ""},
        {"/c", "/", "c"},
        {"a/b/", "a/b", ""},
        {"/a/", "/a", ""},
        {"a//b", "a/", "b"},
        {"a/b//", "a/b/", ""},
        {"//", "//", ""},
        {"//a", "//", "a"},
        {"///", "//", ""},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.path);
        const StringView path = i.path;
        const Containers::Pair<StringView, StringView> parts = Path::split(path);
        EXPECT_EQ(parts.first(), i.directory);
        EXPECT_EQ(parts.second(), i.name);
        EXPECT_EQ(Path::path(path), i.directory);
        EXPECT_EQ(Path::filename(path), i.name);
        EXPECT_EQ(parts.first().data(), path.data());
        EXPECT_EQ(parts.second().end(), path.end());
        EXPECT_TRUE(parts.second().flags() & Containers::StringViewFlag::NullTerminated);
    }
    EXPECT_TRUE(Path::split("/a"_s).first().flags() == Containers::StringViewFlag::Global);
}

TEST(Path, splitExtension) {
    const struct {
        const char *path, *name, *extension;
    } cases[]{
        {"a.png", "a", ".png"},
        {"a", "a", ""},
        {"", "", ""},
        {"a.tar.gz", "a.tar", ".gz"},
        {".bashrc", ".bashrc", ""},
        {"/x/.bashrc", "/x/.bashrc", ""},
        {".b.c", ".b", ".c"},
        {"a.", "a", "."},
        {"a..", "a.", "."},
        {".", ".", ""},
        {"..", "..", ""},
        {"..a", "..a", ""},
        {"x/..a.b", "x/..a", ".b"},
        {"a/b.c/d", "a/b.c/d", ""},
        {"a.b/", "a.b/", ""},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.path);
        EXPECT_EQ(Path::splitExtension(i.path).first(), i.name);
        EXPECT_EQ(Path::splitExtension(i.path).second(), i.extension);
    }
}

TEST(Path, join) {
    const struct {
        const char *path, *name, *joined;
    } cases[]{
        {"a", "/b", "/b"},
        {"a", "b", "a/b"},
        {"a/", "b", "a/b"},
        {"a//", "b", "a//b"},
        {"/", "b", "/b"},
        {"", "b", "b"},
        {"a", "", "a/"},
        {"", "", ""},
    };
    for(const auto& i: cases) EXPECT_EQ(Path::join(i.path, i.name), i.joined);

    EXPECT_EQ(Path::join({"a", "b", "c"}), "a/b/c");
    EXPECT_EQ(Path::join({"a", "/b", "c"}), "/b/c");
    EXPECT_EQ(Path::join({"", "a", "", "b", ""}), "a/b/");
    EXPECT_EQ(Path::join({"a"}), "a");
    const Containers::String strings[]{"a", "b"};
    EXPECT_EQ(Path::join(strings), "a/b");
}

/** A directory that is empty and current at the beginning of each test. */
class PathFiles: public testing::Test {
protected:
    void SetUp() override {
        _previous = std::filesystem::current_path();
        std::filesystem::current_path(_directory.path());
    }
    void TearDown() override {
        // Before the directory goes.
        std::filesystem::current_path(_previous);
    }

    static void put(const std::string& filename, const std::string& contents = {}) {
        VantrelTest::writeFile(filename, contents);
    }
    static std::string get(const std::string& filename) { return VantrelTest::readFile(filename); }

private:
    VantrelTest::TestFolder _directory;
    std::filesystem::path _previous;
};

TEST_F(PathFiles, exists) {
    put("file");
    std::filesystem::create_directory("directory");
    std::filesystem::create_symlink("nothing", "dangling");
    EXPECT_TRUE(Path::exists("file"));
    EXPECT_TRUE(Path::exists("directory"));
    EXPECT_FALSE(Path::exists("nothing"));
    EXPECT_FALSE(Path::exists("dangling"));
    EXPECT_FALSE(Path::exists(""));
    /* Only the part that is in the view. */
    EXPECT_TRUE(Path::exists(StringView{"file.txt"}.prefix(4)));
}

TEST_F(PathFiles, isDirectory) {
    put("file");
    std::filesystem::create_directory("directory");
    std::filesystem::create_symlink("directory", "link");
    EXPECT_TRUE(Path::isDirectory("directory"));
    EXPECT_TRUE(Path::isDirectory("link"));
    EXPECT_FALSE(Path::isDirectory("file"));
    EXPECT_FALSE(Path::isDirectory("nothing"));
    EXPECT_FALSE(Path::isDirectory(""));
}

TEST_F(PathFiles, make) {
    EXPECT_TRUE(Path::make("a/b/c"));
    EXPECT_TRUE(std::filesystem::is_directory("a/b/c"));
    EXPECT_TRUE(Path::make("a/b/c"));
    EXPECT_TRUE(Path::make("a/d/"));
    EXPECT_TRUE(std::filesystem::is_directory("a/d"));
    EXPECT_TRUE(Path::make(""));
    EXPECT_TRUE(Path::make("/"));
}

TEST_F(PathFiles, makeFails) {
    put("file");
    EXPECT_REPORTS(
        "Utility::Path::make(): can't create file/a: error 20 (Not a directory)\n", EXPECT_FALSE(Path::make("file/a")));
    EXPECT_REPORTS("Utility::Path::make(): can't create file/a: error 20 (Not a directory)\n",
        EXPECT_FALSE(Path::make("file/a/b/")));
    EXPECT_REPORTS("Utility::Path::make(): file exists but is not a directory\n", EXPECT_FALSE(Path::make("file")));
}

TEST_F(PathFiles, remove) {
    put("file");
    std::filesystem::create_directory("directory");
    std::filesystem::create_symlink("nothing", "dangling");
    EXPECT_TRUE(Path::remove("file"));
    EXPECT_FALSE(std::filesystem::exists("file"));
    EXPECT_TRUE(Path::remove("directory"));
    EXPECT_FALSE(std::filesystem::exists("directory"));
    EXPECT_TRUE(Path::remove("dangling"));
    EXPECT_FALSE(std::filesystem::is_symlink("dangling"));
}

TEST_F(PathFiles, removeFails) {
    EXPECT_REPORTS("Utility::Path::remove(): can't remove nothing: error 2 (No such file or directory)\n",
        EXPECT_FALSE(Path::remove("nothing")));
    std::filesystem::create_directories("full/of");
    EXPECT_REPORTS("Utility::Path::remove(): can't remove full: error 39 (Directory not empty)\n",
        EXPECT_FALSE(Path::remove("full")));
}

TEST_F(PathFiles, read) {
    std::string bytes;
    for(int i = 0; i != 100000; ++i) bytes += char(i * 7);
    put("file", bytes);
    const Containers::Optional<Containers::Array<char>> contents = Path::read("file");
    ASSERT_TRUE(contents);
    EXPECT_EQ(std::string(contents->data(), contents->size()), bytes);

    const Containers::Optional<Containers::String> string = Path::readString("file");
    ASSERT_TRUE(string);
    EXPECT_EQ(*string, (StringView{bytes.data(), bytes.size()}));
    EXPECT_EQ(string->data()[string->size()], '\0');
}

TEST_F(PathFiles, readEmpty) {
    put("empty");
    const Containers::Optional<Containers::Array<char>> contents = Path::read("empty");
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->size(), 0u);
    const Containers::Optional<Containers::String> string = Path::readString("empty");
    ASSERT_TRUE(string);
    EXPECT_EQ(*string, "");
}

/* Files that the kernel generates have no size. */
TEST_F(PathFiles, readOfUnknownSize) {
    const Containers::Optional<Containers::String> maps = Path::readString("/proc/self/maps");
    ASSERT_TRUE(maps);
    EXPECT_GT(maps->size(), 4096u);
    EXPECT_EQ(maps->back(), '\n');
}

TEST_F(PathFiles, readFails) {
    std::filesystem::create_directory("directory");
    EXPECT_REPORTS("Utility::Path::read(): can't open nothing: error 2 (No such file or directory)\n",
        EXPECT_FALSE(Path::read("nothing")));
    EXPECT_REPORTS("Utility::Path::read(): can't open nothing: error 2 (No such file or directory)\n",
        EXPECT_FALSE(Path::readString("nothing")));
    EXPECT_REPORTS(
        "Utility::Path::read(): can't open : error 2 (No such file or directory)\n", EXPECT_FALSE(Path::read("")));
    EXPECT_REPORTS("Utility::Path::read(): directory is a directory\n", EXPECT_FALSE(Path::read("directory")));
}

TEST_F(PathFiles, write) {
    put("file", "longer than what comes");
    EXPECT_TRUE(Path::write("file", "a\0b"_s));
    EXPECT_EQ(get("file"), std::string("a\0b", 3));

    const int numbers[]{1, 2};
    EXPECT_TRUE(Path::write("numbers", Containers::arrayView(numbers)));
    EXPECT_EQ(get("numbers"), std::string(reinterpret_cast<const char*>(numbers), sizeof(numbers)));

    EXPECT_TRUE(Path::write("string", Containers::String{"text"}));
    EXPECT_EQ(get("string"), "text");

    EXPECT_TRUE(Path::write("empty", Containers::ArrayView<const void>{}));
    EXPECT_TRUE(std::filesystem::exists("empty"));
    EXPECT_EQ(get("empty"), "");
}

TEST_F(PathFiles, writeFails) {
    std::filesystem::create_directory("directory");
    EXPECT_REPORTS("Utility::Path::write(): can't open nothing/file: error 2 (No such file or directory)\n",
        EXPECT_FALSE(Path::write("nothing/file", "x"_s)));
    EXPECT_REPORTS("Utility::Path::write(): can't open directory: error 21 (Is a directory)\n",
        EXPECT_FALSE(Path::write("directory", "x"_s)));
}

TEST_F(PathFiles, list) {
    put("b");
    put("B");
    std::filesystem::create_directory("a");
    std::filesystem::create_directory(".hidden");
    std::filesystem::create_symlink("nothing", "dangling");
    std::filesystem::create_symlink("b", "link");
    std::filesystem::create_symlink("a", "linked");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);

    typedef Path::ListFlag Flag;
    const struct {
        Path::ListFlags flags;
        const char* names;
    } cases[]{
        {Flag::SortAscending, ". .. .hidden B a b dangling link linked pipe"},
        {Flag::SortDescending | Flag::SkipDotAndDotDot, "pipe linked link dangling b a B .hidden"},
        {Flag::SortAscending | Flag::SkipDirectories, "B b dangling link pipe"},
        {Flag::SortAscending | Flag::SkipFiles, ". .. .hidden a dangling linked pipe"},
        {Flag::SortAscending | Flag::SkipSpecial | Flag::SkipDotAndDotDot, ".hidden B a b dangling link linked"},
        {Flag::SortAscending | Flag::SkipFiles | Flag::SkipDirectories, "dangling pipe"},
    };
    for(const auto& i: cases) {
        const Containers::Optional<Containers::Array<Containers::String>> names = Path::list(".", i.flags);
        ASSERT_TRUE(names);
        EXPECT_EQ(" "_s.join(*names), i.names);
    }
    EXPECT_EQ(Path::list(".")->size(), 10u);
    EXPECT_EQ(Path::list("a", Flag::SkipDotAndDotDot)->size(), 0u);
}

TEST_F(PathFiles, listFails) {
    put("file");
    EXPECT_REPORTS("Utility::Path::list(): can't list nothing: error 2 (No such file or directory)\n",
        EXPECT_FALSE(Path::list("nothing")));
    EXPECT_REPORTS(
        "Utility::Path::list(): can't list file: error 20 (Not a directory)\n", EXPECT_FALSE(Path::list("file")));
}

TEST(Path, executableLocation) {
    const Containers::Optional<Containers::String> location = Path::executableLocation();
    ASSERT_TRUE(location);
    EXPECT_EQ(*location, std::filesystem::read_symlink("/proc/self/exe").c_str());
}

}
