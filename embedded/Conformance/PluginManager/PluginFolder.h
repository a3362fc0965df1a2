#pragma once

#include <filesystem>
#include <string>

#include <Corrade/Containers/StringView.h>
#include <gtest/gtest.h>

// Runs `f` and returns what it wrote to the error output, warnings included.
template<class F> std::string errorsOf(F&& f) {
    testing::internal::CaptureStderr();
    f();
    return testing::internal::GetCapturedStderr();
}

// Same for the debug output.
template<class F> std::string outputOf(F&& f) {
    testing::internal::CaptureStdout();
    f();
    return testing::internal::GetCapturedStdout();
}

// The folder with the plugins of this build, and a file in it.
Corrade::Containers::StringView pluginDirectory();
std::string pluginFile(const std::string& plugin);

// A test with an empty folder of its own, removed afterwards.
struct PluginFolder: testing::Test {
    PluginFolder();
    ~PluginFolder() override;

    std::string folder() const { return _folder.string(); }
    std::string path(const std::string& file) const { return (_folder / file).string(); }

    void copyPlugin(const std::string& plugin, const std::string& file) const;
    void write(const std::string& file, const std::string& contents) const;

private:
    std::filesystem::path _folder;
};
