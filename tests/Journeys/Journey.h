#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace VantrelTest {

struct JourneyResult {
    // 128 + the signal if there was one.
    int status = -1;
    // Both outputs.
    std::string output;
};

// Three bytes a pixel, the highest row first.
struct JourneyPicture {
    int width = 0, height = 0;
    std::vector<unsigned char> pixels;

    // 0xrrggbb.
    unsigned pixel(int x, int y) const;
};

// The editor without a window, played by a script.
class JourneyTest: public testing::Test {
protected:
    // The view of most journeys: it tells what it hears.
    static const std::string Recorder;
    static const std::string Courtyard;

    // "{}" in the script stands for the test's folder. The arguments are put behind "--headless --script FILE".
    JourneyResult play(const std::string& script, const std::string& arguments);
    // With the recorder and the courtyard, 1000 x 700, and one frame in the end. Expects success.
    std::string play(const std::string& script);
    // Any arguments of the editor.
    JourneyResult runEditor(const std::string& arguments);

    std::string read(const std::string& name) const { return readFile(folder.path(name)); }
    JourneyPicture picture(const std::string& name) const;

    TestFolder folder;
};

// The lines that the recorder said, without its name in front, but movements.
std::string heard(const std::string& output);

}
