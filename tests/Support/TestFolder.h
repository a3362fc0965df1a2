#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

namespace VantrelTest {

inline void writeFile(const std::filesystem::path& file, const std::string& contents) {
    std::ofstream{file, std::ios::binary} << contents;
}

inline std::string readFile(const std::filesystem::path& file) {
    std::ifstream stream{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

// A folder of the running test's own, gone afterwards. Its name is like no other's, so that two builds may be tested at
// the same time.
class TestFolder {
public:
    TestFolder() {
        // mkdtemp() writes over the last six characters.
        std::string name = (std::filesystem::path{testing::TempDir()} / ("vantrel-" + std::string(6, 'X'))).string();
        const char* const made = mkdtemp(name.data());
        EXPECT_TRUE(made) << name;
        if(made) _path = made;
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        if(!_path.empty()) std::filesystem::remove_all(_path);
    }

    const std::filesystem::path& path() const { return _path; }
    std::string path(const std::string& name) const { return (_path / name).string(); }

    // Makes the folders on the way, too.
    void write(const std::string& name, const std::string& contents) const {
        std::filesystem::create_directories((_path / name).parent_path());
        writeFile(_path / name, contents);
    }

private:
    std::filesystem::path _path;
};

}
