#include "Modules/LibraryCheck.h"

#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using VantrelTest::readFile;
using VantrelTest::TestFolder;

TEST(LibraryCheckTest, AWholeLibraryIsFine) { EXPECT_EQ(whyNotLoadable(RECORDER), ""); }

TEST(LibraryCheckTest, WhatIsWrong) {
    const std::string library = readFile(RECORDER);
    std::string relocatable = library, otherClass = library, wildSections = library;
    relocatable[16] = 1;
    otherClass[4] = otherClass[4] == 1 ? 2 : 1;
    // The place of the table of sections.
    for(int i = 40; i != 48; ++i) wildSections[std::size_t(i)] = '\xff';
    const struct {
        const char* name;
        std::string contents, reason;
    } cases[]{{"empty", "", "the file is cut off"}, {"short", library.substr(0, 30), "the file is cut off"},
        {"header", library.substr(0, 64), "the file is cut off"},
        {"last byte", library.substr(0, library.size() - 1), "the file is cut off"},
        {"text", std::string(1000, 'x'), "the file is no library"},
        {"object", relocatable, "the file is no library for this machine"},
        {"other class", otherClass, "the file is no library for this machine"},
        {"wild place", wildSections, "the file is cut off"}};
    const TestFolder folder;
    for(const auto& testCase: cases) {
        folder.write("library.so", testCase.contents);
        EXPECT_EQ(whyNotLoadable(folder.path("library.so")), testCase.reason) << testCase.name;
    }
    EXPECT_EQ(whyNotLoadable(folder.path("missing.so")), "the file cannot be read");
}

} // namespace

} // namespace VantrelEngine
