#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

struct CommandResult {
    // 128 + the signal if there was one.
    int exitCode;
    // Both outputs.
    std::string output;
};

// Runs a command in the shell.
CommandResult run(const std::string& command);

// A test with an empty folder of its own, removed afterwards.
struct FolderTest: testing::Test {
    FolderTest();
    ~FolderTest() override;

    std::string path(const std::string& file) const { return (_folder / file).string(); }

private:
    std::filesystem::path _folder;
};
