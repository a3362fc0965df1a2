#include "Journeys/Journey.h"

#include <cstdio>
#include <memory>
#include <sstream>

#include <stb/stb_image.h>
#include <sys/wait.h>

namespace VantrelTest {

namespace {

std::string withFolder(std::string script, const std::string& folder) {
    for(std::size_t place = script.find("{}"); place != std::string::npos; place = script.find("{}", place))
        script.replace(place, 2, folder);
    return script;
}

}

const std::string JourneyTest::Recorder = RECORDER;
const std::string JourneyTest::Courtyard = PROJECTS "/Courtyard/project.json";

unsigned JourneyPicture::pixel(int x, int y) const {
    const std::size_t i = (std::size_t(y) * std::size_t(width) + std::size_t(x)) * 3;
    return unsigned(pixels.at(i)) << 16 | unsigned(pixels.at(i + 1)) << 8 | pixels.at(i + 2);
}

JourneyResult JourneyTest::runEditor(const std::string& arguments) {
    JourneyResult result;
    FILE* const pipe = popen((EDITOR " " + arguments + " 2>&1").data(), "r");
    if(!pipe) return result;
    for(int c; (c = std::fgetc(pipe)) != EOF;) result.output += char(c);
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

JourneyResult JourneyTest::play(const std::string& script, const std::string& arguments) {
    folder.write("script.txt", withFolder(script, folder.path().string()));
    return runEditor("--headless --script " + folder.path("script.txt") + " " + arguments);
}

std::string JourneyTest::play(const std::string& script) {
    const JourneyResult result = play(script, "--module " + Recorder + " --size 1000x700 --frames 1 " + Courtyard);
    EXPECT_EQ(result.status, 0) << result.output;
    return result.output;
}

JourneyPicture JourneyTest::picture(const std::string& name) const {
    JourneyPicture picture;
    const std::unique_ptr<stbi_uc, void (*)(void*)> data{
        stbi_load(folder.path(name).data(), &picture.width, &picture.height, nullptr, 3), stbi_image_free};
    EXPECT_TRUE(data) << name;
    if(data)
        picture.pixels.assign(data.get(), data.get() + std::size_t(picture.width) * std::size_t(picture.height) * 3);
    return picture;
}

std::string heard(const std::string& output) {
    const std::string prefix = "recorder: ";
    std::string lines;
    std::istringstream stream{output};
    for(std::string line; std::getline(stream, line);)
        if(line.compare(0, prefix.size(), prefix) == 0 && line.compare(prefix.size(), 5, "move ") != 0)
            lines += line.substr(prefix.size()) + '\n';
    return lines;
}

}
