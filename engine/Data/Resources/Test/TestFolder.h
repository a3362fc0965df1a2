#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace VantrelEngine::Test {

// A folder of the running test's own.
class TestFolder {
public:
    TestFolder() {
        const auto* const info = testing::UnitTest::GetInstance()->current_test_info();
        _path = std::filesystem::path{testing::TempDir()} /
            (std::string{"resources-"} + info->test_suite_name() + '-' + info->name());
        std::filesystem::remove_all(_path);
        std::filesystem::create_directories(_path);
    }
    ~TestFolder() { std::filesystem::remove_all(_path); }

    const std::filesystem::path& path() const { return _path; }

    void write(const std::string& name, const std::string& contents) const {
        std::filesystem::create_directories((_path / name).parent_path());
        std::ofstream{_path / name, std::ios::binary} << contents;
    }

private:
    std::filesystem::path _path;
};

}
